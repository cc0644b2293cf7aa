// The executable with the test plug-in: verdicts and exit statuses, the stop
// at the first refusal and --keep-going, crash isolation (abort, exceptions,
// exit) in one child process per run, and where log lines go.
#include <confd_lib.h>
#include <gtest/gtest.h>

#include "tool_run.h"

namespace {

struct PluginRun {
    const char* name;
    // The interface key of each call in turn; it selects the test plug-in's
    // behaviour. The calls' points are named point_1, point_2, ...
    std::vector<std::string> keys;
    std::vector<std::string> options;
    std::vector<std::string> environment;
    int status;
    std::vector<std::string> out_has;
    std::vector<std::string> out_lacks;
    std::vector<std::string> err_has;
    std::vector<std::string> err_lacks;
};

void PrintTo(const PluginRun& run, std::ostream* out) {
    *out << run.name;
}

std::vector<std::string> Arguments(const PluginRun& run) {
    std::vector<std::string> arguments{"--plugin", TEST_PLUGIN};
    arguments.insert(arguments.end(), run.options.begin(), run.options.end());
    for (size_t i = 0; i < run.keys.size(); ++i) {
        arguments.push_back("--call");
        arguments.push_back("point_" + std::to_string(i + 1) + "=/config/interface/l3{" +
                            run.keys[i] + "}/ipv6/nd/ra");
    }
    arguments.push_back(TOOL_TEST_CANDIDATE);
    return arguments;
}

void ExpectContains(const std::string& text, const std::vector<std::string>& fragments,
                    bool contained, const char* stream) {
    for (const std::string& fragment : fragments) {
        EXPECT_EQ(text.find(fragment) != std::string::npos, contained)
            << stream << (contained ? " lacks " : " has ") << "[" << fragment << "]:\n"
            << text;
    }
}

class PluginRunTest : public testing::TestWithParam<PluginRun> {};

TEST_P(PluginRunTest, VerdictOutputAndStatus) {
    const PluginRun& expected = GetParam();
    const ToolRun run = RunIpappValidate(Arguments(expected), expected.environment);
    EXPECT_EQ(run.status, expected.status) << run.out << run.err;
    ExpectContains(run.out, expected.out_has, true, "stdout");
    ExpectContains(run.out, expected.out_lacks, false, "stdout");
    ExpectContains(run.err, expected.err_has, true, "stderr");
    ExpectContains(run.err, expected.err_lacks, false, "stderr");
}

const std::string kAssertion =
    "test-plugin: point_2: Assertion `(&keypath->v[3][0])->type == C_BUF' failed.";

INSTANTIATE_TEST_SUITE_P(
    Tool, PluginRunTest,
    testing::Values(
        PluginRun{"accepted",
                  {"ok", "ok"},
                  {},
                  {},
                  0,
                  {"accepted  point_1", "accepted  point_2  /config/interface/l3{ok}/ipv6/nd/ra",
                   "accepted: 2 validation calls, none refused"},
                  {},
                  {},
                  {}},
        PluginRun{"refusal_stops_the_run",
                  {"refuse", "refuse"},
                  {},
                  {},
                  1,
                  {"refused   point_1", "point_1 call 1 value type " + std::to_string(C_XMLTAG),
                   "refused: 1 of 2 validation calls refused; stopped at the first refusal, 1 "
                   "not run"},
                  {"point_2"},
                  {},
                  {}},
        // One context lives through the run: the plug-in counts its calls.
        // A call after a refusal starts with no error text left over.
        PluginRun{"keep_going_lists_every_refusal",
                  {"refuse", "ok", "refuse"},
                  {"--keep-going"},
                  {},
                  1,
                  {"point_1 call 1", "accepted  point_2", "point_3 call 3",
                   "refused: 2 of 3 validation calls refused"},
                  {"not run"},
                  {},
                  {}},
        PluginRun{"abort_is_a_crash",
                  {"ok", "abort", "ok"},
                  {},
                  {},
                  3,
                  {"accepted  point_1", "crashed   point_2",
                   "plug-in crashed: killed by signal 6 (Aborted)", kAssertion,
                   "plug-in crashed: 1 of 3 validation calls crashed, 0 refused, 1 not run"},
                  {"point_3"},
                  {},
                  {"Assertion"}},
        PluginRun{"abort_ends_the_run_even_with_keep_going",
                  {"abort", "ok"},
                  {"--keep-going"},
                  {},
                  3,
                  {"crashed   point_1", "1 not run"},
                  {"point_2"},
                  {},
                  {}},
        PluginRun{"exception_is_a_crash",
                  {"throw", "ok"},
                  {},
                  {},
                  3,
                  {"crashed   point_1", "plug-in crashed: exception std::out_of_range", "stoul",
                   "1 not run"},
                  {"point_2"},
                  {},
                  {}},
        PluginRun{"keep_going_continues_after_an_exception",
                  {"throw", "refuse"},
                  {"--keep-going"},
                  {},
                  3,
                  {"crashed   point_1", "point_2 call 2",
                   "plug-in crashed: 1 of 2 validation calls crashed, 1 refused"},
                  {"not run"},
                  {},
                  {}},
        PluginRun{"exception_of_no_standard_type",
                  {"throw-int"},
                  {},
                  {},
                  3,
                  {"plug-in crashed: exception int"},
                  {},
                  {},
                  {}},
        PluginRun{
            "exit_inside_validate", {"exit"}, {}, {}, 3, {"exited with status 0"}, {}, {}, {}},
        PluginRun{"lib_init_fails",
                  {"ok"},
                  {},
                  {"TOOL_TEST_LIB_INIT=fail"},
                  3,
                  {"crashed   lib_init", "lib_init returned -1", "plug-in crashed in lib_init"},
                  {"point_1"},
                  {},
                  {}},
        PluginRun{"lib_finish_aborts",
                  {"ok"},
                  {},
                  {"TOOL_TEST_LIB_FINISH=abort"},
                  3,
                  {"accepted  point_1", "crashed   lib_finish", "killed by signal 6",
                   "lib_finish gives up", "plug-in crashed in lib_finish"},
                  {},
                  {},
                  {}},
        PluginRun{"log_lines_and_stray_output_go_to_stderr",
                  {"chatter"},
                  {},
                  {},
                  0,
                  {"accepted  point_1"},
                  {"fault", "debug", "printed"},
                  {"fault: tests/tool/test_plugin:", ": validate: a fault report (code 0)\n",
                   "debug: a debug line from point_1\n", "printed to stdout\n"},
                  {}},
        PluginRun{"no_debug_keeps_fault_reports",
                  {"chatter"},
                  {"--no-debug"},
                  {},
                  0,
                  {},
                  {},
                  {"fault: "},
                  {"debug: "}}),
    [](const testing::TestParamInfo<PluginRun>& info) { return info.param.name; });

TEST(Tool, LogFileTakesTheLogLinesAndIsAppendedTo) {
    const TempDir directory;
    const std::string log = directory.Path("log");
    const std::vector<std::string> arguments{
        "--plugin",         TEST_PLUGIN, "--log", log, "--call", "p=/config/interface/l3{chatter}",
        TOOL_TEST_CANDIDATE};
    for (int run_number = 1; run_number <= 2; ++run_number) {
        const ToolRun run = RunIpappValidate(arguments);
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.err.find("fault: "), std::string::npos) << run.err;
    }
    const std::string logged = ReadFile(log);
    EXPECT_NE(logged.find("debug: a debug line from p\n"), std::string::npos) << logged;
    EXPECT_NE(logged.find("fault: "), logged.rfind("fault: ")) << "two runs, two reports";
}

// A reader that went away (a pager that quit) does not turn the verdict into
// a death by SIGPIPE.
TEST(Tool, ClosedStdoutKeepsTheVerdict) {
    EXPECT_EQ(
        RunIpappValidateIntoClosedPipe({"--plugin", TEST_PLUGIN, "--call",
                                        "p=/config/interface/l3{refuse}", TOOL_TEST_CANDIDATE}),
        1);
}

TEST(Tool, NothingFiresWhenRunningEqualsCandidate) {
    const ToolRun run =
        RunIpappValidate({"--running", TOOL_TEST_CANDIDATE, "--timing", TOOL_TEST_CANDIDATE});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out.rfind("accepted: no validation point fired\ntime: ", 0), 0u) << run.out;
}

TEST(Tool, HelpDocumentsTheOptionsAndExitStatuses) {
    const ToolRun run = RunIpappValidate({"--help"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    for (const char* text : {"Usage: ipapp-validate", "--running FILE", "--keep-going",
                             "--format text|json", "--call POINT=KEYPATH", "Exit status: 0"}) {
        EXPECT_NE(run.out.find(text), std::string::npos) << text;
    }
}

TEST(Tool, ListPointsShowsEveryPointWithItsRule) {
    const ToolRun run = RunIpappValidate({"--list-points"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    for (const char* text :
         {"validate_ipv6_nd_ra_interval", "validate_ipv6_nd_ra_lifetime", "intf_l3_name_validation",
          "lower_layer_prot_cross_validation", "/config/interface/l3/ipv6/nd/ra", "per instance",
          "a lifetime equal to max-interval is refused"}) {
        EXPECT_NE(run.out.find(text), std::string::npos) << text;
    }
}

}  // namespace
