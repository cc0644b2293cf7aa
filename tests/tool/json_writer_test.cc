// JSON strings carry any text a plug-in sets, escaped as JSON requires; bytes
// that are not UTF-8 become U+FFFD, so the document always parses.
#include <gtest/gtest.h>

#include "json_writer.h"

namespace ipapp_validate {
namespace {

TEST(Json, QuotedEscapesAndReplacesWhatIsNotUtf8) {
    const std::string kReplacement = "\xEF\xBF\xBD";
    const struct {
        std::string text;
        std::string json;
    } cases[] = {
        {"", "\"\""},
        {"%s \"quoted\" \\path\\", "\"%s \\\"quoted\\\" \\\\path\\\\\""},
        {"a\nb\tc\rd\be\ff", "\"a\\nb\\tc\\rd\\be\\ff\""},
        {std::string("nul\0one\x01unit\x1f del\x7f", 18),
         "\"nul\\u0000one\\u0001unit\\u001f del\\u007f\""},
        // Well-formed UTF-8 of two, three and four bytes stays.
        {"\xC3\xBC \xE2\x82\xAC \xF0\x9F\x98\x80", "\"\xC3\xBC \xE2\x82\xAC \xF0\x9F\x98\x80\""},
        // A stray byte, an overlong form, a surrogate, a cut sequence, a
        // code point beyond Unicode, a lone continuation byte.
        {"\xFF", "\"" + kReplacement + "\""},
        {"\xC0\xAF", "\"" + kReplacement + kReplacement + "\""},
        {"\xED\xA0\x80", "\"" + kReplacement + kReplacement + kReplacement + "\""},
        {"\xE2\x82", "\"" + kReplacement + kReplacement + "\""},
        {"\xF4\x90\x80\x80",
         "\"" + kReplacement + kReplacement + kReplacement + kReplacement + "\""},
        {"\x80x", "\"" + kReplacement + "x\""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(JsonQuoted(c.text), c.json);
    }
}

}  // namespace
}  // namespace ipapp_validate
