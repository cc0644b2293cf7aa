// Command lines the tool accepts, and the ones it refuses with a reason.
#include <gtest/gtest.h>

#include "options.h"

namespace ipapp_validate {
namespace {

struct Accepted {
    const char* name;
    std::vector<std::string> arguments;
    std::function<bool(const Options&)> holds;
};

void PrintTo(const Accepted& accepted, std::ostream* out) {
    *out << accepted.name;
}

class AcceptedOptionsTest : public testing::TestWithParam<Accepted> {};

TEST_P(AcceptedOptionsTest, Parse) {
    EXPECT_TRUE(GetParam().holds(ParseOptions(GetParam().arguments)));
}

INSTANTIATE_TEST_SUITE_P(
    Tool, AcceptedOptionsTest,
    testing::Values(
        Accepted{"positional_candidate_with_defaults",
                 {"c.xml"},
                 [](const Options& o) {
                     return o.candidate_file == "c.xml" && o.running_file.empty() &&
                            o.yang_dir.empty() && o.plugin_path.empty() && o.log_file.empty() &&
                            o.format == OutputFormat::text && !o.all && !o.keep_going && o.debug &&
                            o.calls.empty();
                 }},
        Accepted{"values_separate_or_after_equals",
                 {"--running", "r.json", "--candidate=c.xml", "--yang=y", "--plugin", "p.so",
                  "--log=l", "--format", "json"},
                 [](const Options& o) {
                     return o.running_file == "r.json" && o.candidate_file == "c.xml" &&
                            o.yang_dir == "y" && o.plugin_path == "p.so" && o.log_file == "l" &&
                            o.format == OutputFormat::json;
                 }},
        Accepted{"flags",
                 {"--all", "--keep-going", "--no-debug", "--timing", "c.xml"},
                 [](const Options& o) { return o.all && o.keep_going && !o.debug && o.timing; }},
        Accepted{"calls_in_order_split_at_the_first_equals",
                 {"--call", "a=/x{1}", "--call=b=/y{k=v}", "c.xml"},
                 [](const Options& o) {
                     return o.calls.size() == 2 && o.calls[0].point == "a" &&
                            o.calls[0].keypath == "/x{1}" && o.calls[1].point == "b" &&
                            o.calls[1].keypath == "/y{k=v}";
                 }},
        Accepted{"double_dash_ends_the_options",
                 {"--", "--odd-name.xml"},
                 [](const Options& o) { return o.candidate_file == "--odd-name.xml"; }},
        Accepted{"listing_needs_no_candidate",
                 {"--list-points"},
                 [](const Options& o) { return o.list_points; }},
        Accepted{"help_needs_no_candidate", {"-h"}, [](const Options& o) { return o.help; }},
        Accepted{"version_needs_no_candidate",
                 {"--version"},
                 [](const Options& o) { return o.version; }}),
    [](const testing::TestParamInfo<Accepted>& info) { return info.param.name; });

struct Refused {
    const char* name;
    std::vector<std::string> arguments;
    const char* reason;
};

void PrintTo(const Refused& refused, std::ostream* out) {
    *out << refused.name;
}

class RefusedOptionsTest : public testing::TestWithParam<Refused> {};

TEST_P(RefusedOptionsTest, ThrowWithTheReason) {
    try {
        ParseOptions(GetParam().arguments);
        ADD_FAILURE() << "accepted";
    } catch (const UsageError& error) {
        EXPECT_NE(std::string(error.what()).find(GetParam().reason), std::string::npos)
            << error.what();
    }
}

INSTANTIATE_TEST_SUITE_P(
    Tool, RefusedOptionsTest,
    testing::Values(
        Refused{"unknown_long", {"--nope", "c.xml"}, "unknown option '--nope'"},
        Refused{"unknown_short", {"-x", "c.xml"}, "unknown option '-x'"},
        Refused{"missing_value", {"c.xml", "--log"}, "--log needs a value"},
        Refused{"empty_value", {"--running=", "c.xml"}, "non-empty"},
        Refused{"flag_with_value", {"--keep-going=1", "c.xml"}, "takes no value"},
        Refused{"twice", {"--running", "a", "--running", "b", "c.xml"}, "twice"},
        Refused{"two_candidates", {"a.xml", "b.xml"}, "more than one"},
        Refused{"option_and_positional", {"--candidate", "a.xml", "b.xml"}, "more than one"},
        Refused{"no_candidate", {"--running", "r.xml"}, "no candidate"},
        Refused{"bad_format", {"--format", "xml", "c.xml"}, "text or json"},
        Refused{"call_without_equals", {"--call", "p", "c.xml"}, "POINT=KEYPATH"},
        Refused{"call_without_point", {"--call", "=/x", "c.xml"}, "POINT=KEYPATH"},
        Refused{"call_without_keypath", {"--call", "p=", "c.xml"}, "POINT=KEYPATH"},
        Refused{"all_and_call", {"--all", "--call", "p=/x", "c.xml"}, "exclude"}),
    [](const testing::TestParamInfo<Refused>& info) { return info.param.name; });

}  // namespace
}  // namespace ipapp_validate
