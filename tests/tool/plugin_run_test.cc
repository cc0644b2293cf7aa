// The executable with the test plug-in: verdicts, reports and exit statuses,
// the stop at the first refusal and --keep-going, crash isolation (abort,
// exceptions, exit, failing entry points) in one child process per run, and
// where log lines go.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "config_xml.h"
#include "ipapp_test_support/scratch_directory.h"
#include "tool_run.h"

namespace {

struct PluginRun {
    // Options of the run, and the interface key of each call in turn, which
    // selects the test plug-in's behaviour; the calls' points are named
    // point_1, point_2, ...
    const char* options_and_keys;
    const char* environment;
    int status;
    std::string out;  // exactly; a JSON document without its line breaks and indentation
    std::vector<std::string> err_has{};
    std::vector<std::string> err_lacks{};
};

std::vector<std::string> Arguments(const PluginRun& run) {
    std::vector<std::string> arguments{"--plugin", TEST_PLUGIN};
    std::istringstream words(run.options_and_keys);
    int calls = 0;
    for (std::string word; words >> word;) {
        if (word.rfind("--", 0) == 0) {
            arguments.push_back(word);
            continue;
        }
        arguments.push_back("--call");
        arguments.push_back("point_" + std::to_string(++calls) + "=/config/interface/l3{" + word +
                            "}");
    }
    arguments.push_back(TOOL_TEST_CANDIDATE);
    return arguments;
}

// The JSON report without the line breaks and the indentation after them.
std::string Collapsed(const std::string& text) {
    std::string collapsed;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\n') {
            collapsed += text[i];
            continue;
        }
        while (i + 1 < text.size() && text[i + 1] == ' ') {
            ++i;
        }
    }
    return collapsed;
}

// Each call's new value is the tag of the keypath's node, C_XMLTAG (2).
const PluginRun kRuns[] = {
    {"refuse refuse", "", 1,
     "refused   point_1  /config/interface/l3{refuse}\n"
     "          point_1 call 1 value type 2\n"
     "refused: 1 of 2 validation calls refused; stopped at the first refusal, 1 not run\n"},
    // One context lives through the run: the plug-in counts its calls. A
    // call after a refusal starts with no error text left over.
    {"--keep-going refuse ok refuse", "", 1,
     "refused   point_1  /config/interface/l3{refuse}\n"
     "          point_1 call 1 value type 2\n"
     "accepted  point_2  /config/interface/l3{ok}\n"
     "refused   point_3  /config/interface/l3{refuse}\n"
     "          point_3 call 3 value type 2\n"
     "refused: 2 of 3 validation calls refused\n"
     "calls per point: point_1 x 1, point_2 x 1, point_3 x 1\n"},
    // --quiet lists only what failed; the count per point still names every
    // point that ran.
    {"--quiet --call=point_1=/config/interface/l3{chatter} ok refuse", "", 1,
     "refused   point_2  /config/interface/l3{refuse}\n"
     "          point_2 call 3 value type 2\n"
     "refused: 1 of 3 validation calls refused\n"
     "calls per point: point_1 x 2, point_2 x 1\n"},
    // A death ends the run, --keep-going or not; the assertion text goes to
    // the report only.
    {"--keep-going ok abort ok",
     "",
     3,
     "accepted  point_1  /config/interface/l3{ok}\n"
     "crashed   point_2  /config/interface/l3{abort}\n"
     "          plug-in crashed: killed by signal 6 (Aborted)\n"
     "          test-plugin: point_2: Assertion `(&keypath->v[3][0])->type == C_BUF' failed.\n"
     "plug-in crashed: 1 of 3 validation calls crashed, 0 refused, 1 not run\n"
     "calls per point: point_1 x 1, point_2 x 1\n",
     {},
     {"Assertion"}},
    // A call past the timeout is killed and reported as that call's crash,
    // with what the plug-in printed; it ends the run like any death.
    {"--timeout=1 --keep-going ok hang ok", "", 3,
     "accepted  point_1  /config/interface/l3{ok}\n"
     "crashed   point_2  /config/interface/l3{hang}\n"
     "          plug-in crashed: timed out after 1 s\n"
     "          test-plugin: point_2 waits forever\n"
     "plug-in crashed: 1 of 3 validation calls crashed, 0 refused, 1 not run\n"
     "calls per point: point_1 x 1, point_2 x 1\n"},
    {"throw-int ok", "", 3,
     "crashed   point_1  /config/interface/l3{throw-int}\n"
     "          plug-in crashed: exception int\n"
     "plug-in crashed: 1 of 2 validation calls crashed, 0 refused, 1 not run\n"},
    {"exit", "", 3,
     "crashed   point_1  /config/interface/l3{exit}\n"
     "          plug-in crashed: exited with status 0\n"
     "plug-in crashed: 1 of 1 validation calls crashed, 0 refused\n"},
    {"ok", "TOOL_TEST_LIB_INIT=fail", 3,
     "crashed   lib_init\n"
     "          plug-in crashed: lib_init returned -1\n"
     "plug-in crashed in lib_init; 0 of 1 validation calls refused, 1 not run\n"},
    {"ok", "TOOL_TEST_LIB_FINISH=abort", 3,
     "accepted  point_1     /config/interface/l3{ok}\n"
     "crashed   lib_finish\n"
     "          plug-in crashed: killed by signal 6 (Aborted)\n"
     "          lib_finish gives up\n"
     "plug-in crashed in lib_finish; 0 of 1 validation calls refused\n"},
    // Log lines go on to stderr; what else the plug-in prints follows them.
    {"chatter",
     "",
     0,
     "accepted  point_1  /config/interface/l3{chatter}\n"
     "accepted: 1 validation calls, none refused\n",
     {"fault: tests/tool/test_plugin:",
      ": validate: a fault report (code 0)\ndebug: a debug line from point_1\nprinted to "
      "stdout\n"}},
    // --trace: the call of validate, then the plug-in's API calls, each a
    // line whose data is escaped; the report is the same as without.
    {"--trace escapes",
     "",
     1,
     "refused   point_1  /config/interface/l3{escapes}\n"
     "          q\" b\\\\ t\t n\n           c\\x01 p%s u\xC3\xBC x\\xFF\n"
     "refused: 1 of 1 validation calls refused\n",
     {"trace: validate /config/interface/l3{escapes} point_1 -> l3\n"
      "trace: confd_trans_seterr => \"q\" b\\\\ t\\t n\\n c\\x01 p%s u\xC3\xBC x\\xFF\"\n"}},
    {"--no-debug chatter",
     "",
     0,
     "accepted  point_1  /config/interface/l3{chatter}\n"
     "accepted: 1 validation calls, none refused\n",
     {"fault: "},
     {"debug: "}},
    // An exception lets --keep-going go on; the refusal text needs every
    // kind of JSON escaping, and its byte 0xFF that is not UTF-8 is U+FFFD.
    {"--keep-going --format=json escapes throw refuse", "", 3,
     R"({"verdict": "crashed","exit_code": 3,)"
     R"("summary": "plug-in crashed: 1 of 3 validation calls crashed, 2 refused",)"
     R"("fired": 3,"run": 3,"calls": [{"entry_point": "validate","point": "point_1",)"
     R"("keypath": "/config/interface/l3{escapes}","verdict": "refused","result": -1,)"
     R"("text": "q\" b\\ t\t n\n c\u0001 p%s u)"
     "\xC3\xBC x\xEF\xBF\xBD"
     R"("},{"entry_point": "validate","point": "point_2",)"
     R"("keypath": "/config/interface/l3{throw}","verdict": "crashed",)"
     R"("crash": {"cause": "exception std::out_of_range","detail": "stoul"}},)"
     R"({"entry_point": "validate","point": "point_3","keypath": "/config/interface/l3{refuse}",)"
     R"("verdict": "refused","result": -1,"text": "point_3 call 3 value type 2"}]})"},
    // The same run as JUnit XML, whole: markup characters as entities, line
    // breaks and tabs as character references, the control character XML
    // cannot carry and the byte that is not UTF-8 escaped visibly.
    {"--keep-going --format=junit ok escapes throw refuse", "", 3,
     "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
     "<testsuite name=\"ipapp-validate\" tests=\"4\" failures=\"2\" errors=\"1\">\n"
     "  <properties>\n"
     "    <property name=\"summary\" "
     "value=\"plug-in crashed: 1 of 4 validation calls crashed, 2 refused\"/>\n"
     "  </properties>\n"
     "  <testcase name=\"point_1\" classname=\"/config/interface/l3{ok}\"/>\n"
     "  <testcase name=\"point_2\" classname=\"/config/interface/l3{escapes}\">\n"
     "    <failure message=\"q&quot; b\\\\ t&#9; n&#10; c\\x01 p%s u\xC3\xBC x\\xFF\" "
     "type=\"refused\"/>\n"
     "  </testcase>\n"
     "  <testcase name=\"point_3\" classname=\"/config/interface/l3{throw}\">\n"
     "    <error message=\"plug-in crashed: exception std::out_of_range\" "
     "type=\"crash\">stoul</error>\n"
     "  </testcase>\n"
     "  <testcase name=\"point_4\" classname=\"/config/interface/l3{refuse}\">\n"
     "    <failure message=\"point_4 call 4 value type 2\" type=\"refused\"/>\n"
     "  </testcase>\n"
     "</testsuite>\n"},
};

TEST(Tool, VerdictReportAndStatus) {
    for (const PluginRun& expected : kRuns) {
        const ToolRun run = RunIpappValidate(Arguments(expected), expected.environment);
        SCOPED_TRACE(run.out + run.err);
        EXPECT_EQ(run.status, expected.status);
        EXPECT_EQ(expected.out.front() == '{' ? Collapsed(run.out) : run.out, expected.out);
        for (const std::string& fragment : expected.err_has) {
            EXPECT_NE(run.err.find(fragment), std::string::npos) << fragment;
        }
        for (const std::string& fragment : expected.err_lacks) {
            EXPECT_EQ(run.err.find(fragment), std::string::npos) << fragment;
        }
    }
}

// Log lines go to the log file, which each run appends to; a stdout closed
// at start does not make the log file descriptor 1, which the report is
// written to.
TEST(Tool, LogFileTakesTheLogLinesAndIsAppendedTo) {
    const ipapp_test::ScratchDirectory directory;
    const std::string log = (directory.path() / "log").string();
    const std::vector<std::string> arguments{
        "--plugin",         TEST_PLUGIN, "--log", log, "--call", "p=/config/interface/l3{chatter}",
        TOOL_TEST_CANDIDATE};
    const ToolRun run = RunIpappValidate(arguments);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err.find("fault: "), std::string::npos) << run.err;
    EXPECT_EQ(RunIpappValidateRedirected(arguments, ">&-"), 0);
    const std::string logged = ReadFile(log);
    EXPECT_NE(logged.find("debug: a debug line from p\n"), std::string::npos) << logged;
    EXPECT_NE(logged.find("fault: "), logged.rfind("fault: ")) << "two runs, two reports";
    EXPECT_EQ(logged.find("validation calls"), std::string::npos) << logged;
}

// A reader that went away (a pager that quit) does not turn the verdict into
// a death by SIGPIPE.
TEST(Tool, ClosedStdoutKeepsTheVerdict) {
    EXPECT_EQ(
        RunIpappValidateIntoClosedPipe({"--plugin", TEST_PLUGIN, "--call",
                                        "p=/config/interface/l3{refuse}", TOOL_TEST_CANDIDATE}),
        1);
}

// A key may hold a newline; the text report's rows stay one line each.
TEST(Tool, TextReportRowsAreOneLineEach) {
    const ipapp_test::ScratchDirectory directory;
    const std::string candidate = (directory.path() / "candidate.xml").string();
    std::ofstream(candidate) << ipapp_generator::Interfaces(ipapp_generator::L3("a&#10;b"));
    const ToolRun run = RunIpappValidate({"--all", "--keep-going", "--no-debug", candidate});
    EXPECT_NE(run.out.find("  /config/interface/l3{a\\nb}/ipv6/nd/ra\n"), std::string::npos)
        << run.out;
    EXPECT_EQ(run.out.find("\nb}"), std::string::npos) << run.out;
}

// The help text is checked against the man page and the completion
// (tests/package).
TEST(Tool, PointListsAndTiming) {
    const struct {
        std::vector<std::string> arguments;
        std::vector<const char*> fragments;
    } cases[] = {
        {{"--list-points"},
         {"validate_ipv6_nd_ra_lifetime", "intf_l3_name_validation",
          "/config/interface/l3/ipv6/nd/ra", "per instance",
          "a lifetime equal to max-interval is refused"}},
        {{"--list-points", "--format", "json"},
         {R"("name": "validate_ipv6_nd_ra_lifetime")",
          R"("node": "/config/interface/l3/ipv6/nd/ra")", R"("call_once": false)",
          R"("dependencies": [)", R"("description": ")"}},
        {{"--plugin", TEST_PLUGIN, "--timing", "--format", "json", "--call",
          "p=/config/interface/l3{ok}", TOOL_TEST_CANDIDATE},
         {R"("verdict": "accepted")", R"("timing": {)", R"("total_ms": )", R"("plugin_ms": )",
          R"("tool_ms": )"}},
    };
    for (const auto& c : cases) {
        const ToolRun run = RunIpappValidate(c.arguments);
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.err, "");
        for (const char* fragment : c.fragments) {
            EXPECT_NE(run.out.find(fragment), std::string::npos) << fragment << '\n' << run.out;
        }
    }
}

// The state letter of /proc/PID/stat ('Z' for a zombie), and the parent's
// PID; state 0 when the process is gone.
struct ProcessStat {
    char state = 0;
    pid_t parent = 0;
};

ProcessStat StatOf(const std::string& pid) {
    std::ifstream file("/proc/" + pid + "/stat");
    std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    ProcessStat stat;
    const size_t name_end = text.rfind(')');
    if (name_end != std::string::npos) {
        std::istringstream(text.substr(name_end + 1)) >> stat.state >> stat.parent;
    }
    return stat;
}

pid_t ChildOf(pid_t parent) {
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        const std::string name = entry.path().filename().string();
        if (name.find_first_not_of("0123456789") == std::string::npos &&
            StatOf(name).parent == parent) {
            return static_cast<pid_t>(std::stoi(name));
        }
    }
    return 0;
}

// Waits up to ten seconds for done().
template <typename Done>
bool WithinTenSeconds(Done done) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!done() && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return done();
}

// A tool that is killed (a cancelled job) takes its plug-in's process along,
// even one that hangs in a call.
TEST(Tool, KilledToolLeavesNoPluginProcess) {
    const pid_t tool = fork();
    if (tool == 0) {
        const int null = open("/dev/null", O_WRONLY);
        dup2(null, STDOUT_FILENO);
        dup2(null, STDERR_FILENO);
        execl(IPAPP_VALIDATE, IPAPP_VALIDATE, "--plugin", TEST_PLUGIN, "--call",
              "p=/config/interface/l3{hang}", TOOL_TEST_CANDIDATE, static_cast<char*>(nullptr));
        _exit(127);
    }
    pid_t plugin_process = 0;
    WithinTenSeconds([&] { return (plugin_process = ChildOf(tool)) != 0; });
    kill(tool, SIGKILL);
    waitpid(tool, nullptr, 0);
    ASSERT_NE(plugin_process, 0) << "the tool started no plug-in process";
    const std::string pid = std::to_string(plugin_process);
    const bool gone = WithinTenSeconds([&] {
        const char state = StatOf(pid).state;
        return state == 0 || state == 'Z';
    });
    if (!gone) {
        kill(plugin_process, SIGKILL);
    }
    EXPECT_TRUE(gone) << "the plug-in's process outlived the tool";
}

}  // namespace
