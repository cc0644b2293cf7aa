// JSON strings carry any text, escaped as JSON requires, and the writer's
// documents are laid out with their separators right.
#include <gtest/gtest.h>

#include <sstream>

#include "json_writer.h"

namespace ipapp_validate {
namespace {

struct Quoting {
    const char* name;
    std::string text;
    std::string json;
};

void PrintTo(const Quoting& quoting, std::ostream* out) {
    *out << quoting.name;
}

class JsonQuotedTest : public testing::TestWithParam<Quoting> {};

TEST_P(JsonQuotedTest, Escapes) {
    EXPECT_EQ(JsonQuoted(GetParam().text), GetParam().json);
}

INSTANTIATE_TEST_SUITE_P(
    Json, JsonQuotedTest,
    testing::Values(
        Quoting{"empty", "", "\"\""}, Quoting{"plain", "plain 0.75 * x", "\"plain 0.75 * x\""},
        Quoting{"quote_and_backslash", "\"quoted\" \\path\\", "\"\\\"quoted\\\" \\\\path\\\\\""},
        Quoting{"named_control_characters", "a\nb\tc\rd\be\ff", "\"a\\nb\\tc\\rd\\be\\ff\""},
        Quoting{"other_control_characters", std::string("nul\0one\x01unit\x1f del\x7f", 18),
                "\"nul\\u0000one\\u0001unit\\u001f del\\u007f\""},
        Quoting{"percent", "%s %d", "\"%s %d\""},
        // Well-formed UTF-8 of two, three and four bytes stays.
        Quoting{"utf8_kept", "\xC3\xBC \xE2\x82\xAC \xF0\x9F\x98\x80",
                "\"\xC3\xBC \xE2\x82\xAC \xF0\x9F\x98\x80\""},
        // Stray, overlong, surrogate, cut and out-of-range bytes
        // each become U+FFFD.
        Quoting{"stray_byte", "\xFF", "\"\xEF\xBF\xBD\""},
        Quoting{"overlong", "\xC0\xAF", "\"\xEF\xBF\xBD\xEF\xBF\xBD\""},
        Quoting{"surrogate", "\xED\xA0\x80", "\"\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\""},
        Quoting{"cut_sequence", "\xE2\x82", "\"\xEF\xBF\xBD\xEF\xBF\xBD\""},
        Quoting{"beyond_unicode", "\xF4\x90\x80\x80",
                "\"\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\""},
        Quoting{"lone_continuation", "\x80x", "\"\xEF\xBF\xBDx\""}),
    [](const testing::TestParamInfo<Quoting>& info) { return info.param.name; });

TEST(JsonWriter, NestedDocument) {
    std::ostringstream out;
    JsonWriter json(out);
    json.BeginObject();
    json.Key("empty object");
    json.BeginObject();
    json.EndObject();
    json.Key("list");
    json.BeginArray();
    json.Integer(-1);
    json.Decimal(0.75);
    json.Bool(false);
    json.Null();
    json.BeginArray();
    json.EndArray();
    json.EndArray();
    json.Key("text");
    json.String("a\"b");
    json.EndObject();
    EXPECT_EQ(out.str(),
              "{\n"
              "  \"empty object\": {},\n"
              "  \"list\": [\n"
              "    -1,\n"
              "    0.750,\n"
              "    false,\n"
              "    null,\n"
              "    []\n"
              "  ],\n"
              "  \"text\": \"a\\\"b\"\n"
              "}\n");
}

}  // namespace
}  // namespace ipapp_validate
