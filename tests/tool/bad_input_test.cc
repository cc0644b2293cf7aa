// Bad input of every kind: one line on stderr that names the problem, exit
// status 2, and nothing on stdout.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tool_run.h"

namespace {

constexpr const char* kCandidate =
    "<config xmlns=\"urn:ipapp:yang:device-config\"><interface>"
    "<l3 xmlns=\"urn:ipapp:yang:ipapp\"><name>5</name></l3>"
    "</interface></config>\n";

struct BadInput {
    const char* name;
    // Files to write into the case's directory first: name, content; a name
    // that ends in "/" is a directory.
    std::vector<std::pair<std::string, std::string>> files;
    // Arguments; "@dir/" stands for the case's directory.
    std::vector<std::string> arguments;
    // What the one line must contain; "@dir/" as above.
    std::vector<std::string> fragments;
};

void PrintTo(const BadInput& input, std::ostream* out) {
    *out << input.name;
}

std::string Expand(const std::string& text, const TempDir& directory) {
    std::string expanded = text;
    for (size_t at = expanded.find("@dir/"); at != std::string::npos; at = expanded.find("@dir/")) {
        expanded.replace(at, 5, directory.Path(""));
    }
    return expanded;
}

class BadInputTest : public testing::TestWithParam<BadInput> {};

TEST_P(BadInputTest, OneLineExitTwoNothingOnStdout) {
    const BadInput& input = GetParam();
    const TempDir directory;
    std::ofstream(directory.Path("candidate.xml")) << kCandidate;
    for (const auto& [name, content] : input.files) {
        if (name.back() == '/') {
            std::filesystem::create_directory(directory.Path(name));
        } else {
            std::ofstream(directory.Path(name)) << content;
        }
    }
    std::vector<std::string> arguments;
    for (const std::string& argument : input.arguments) {
        arguments.push_back(Expand(argument, directory));
    }

    const ToolRun run = RunIpappValidate(arguments);

    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    const std::vector<std::string> lines = run.ErrLines();
    ASSERT_EQ(lines.size(), 1u) << run.err;
    EXPECT_EQ(lines[0].rfind("ipapp-validate: ", 0), 0u) << lines[0];
    for (const std::string& fragment : input.fragments) {
        EXPECT_NE(lines[0].find(Expand(fragment, directory)), std::string::npos) << lines[0];
    }
}

const std::string kModelViolation =
    "<config xmlns=\"urn:ipapp:yang:device-config\"><interface>"
    "<l3 xmlns=\"urn:ipapp:yang:ipapp\"><name>5</name><ipv6><nd><ra>"
    "<max-interval>70000</max-interval></ra></nd></ipv6></l3></interface></config>\n";

INSTANTIATE_TEST_SUITE_P(
    Tool, BadInputTest,
    testing::Values(
        BadInput{"missing_candidate", {}, {"@dir/none.xml"}, {"@dir/none.xml", "cannot read"}},
        BadInput{"candidate_is_a_directory",
                 {{"directory.xml/", ""}},
                 {"--candidate", "@dir/directory.xml"},
                 {"@dir/directory.xml", "cannot read"}},
        BadInput{"missing_running",
                 {},
                 {"--running", "@dir/none.xml", "@dir/candidate.xml"},
                 {"@dir/none.xml", "cannot read"}},
        BadInput{"malformed_xml",
                 {{"bad.xml", "<config xmlns=\"urn:ipapp:yang:device-config\"><interface>"}},
                 {"@dir/bad.xml"},
                 {"@dir/bad.xml: "}},
        BadInput{
            "malformed_json", {{"bad.json", "{\"x\": 1"}}, {"@dir/bad.json"}, {"@dir/bad.json: "}},
        BadInput{"malformed_running",
                 {{"bad.json", "[1, 2"}},
                 {"--running", "@dir/bad.json", "@dir/candidate.xml"},
                 {"@dir/bad.json: "}},
        BadInput{"data_violating_the_model",
                 {{"violation.xml", kModelViolation}},
                 {"@dir/violation.xml"},
                 {"@dir/violation.xml: ", "70000", "max-interval"}},
        BadInput{"unknown_data_format",
                 {{"candidate.txt", kCandidate}},
                 {"@dir/candidate.txt"},
                 {"@dir/candidate.txt", ".xml or .json"}},
        BadInput{"unknown_option", {}, {"--frobnicate", "@dir/candidate.xml"}, {"'--frobnicate'"}},
        BadInput{"call_keypath_outside_the_model",
                 {},
                 {"--call", "p=/config/interface/nothing{5}", "@dir/candidate.xml"},
                 {"--call p=/config/interface/nothing{5}"}},
        BadInput{"plugin_that_is_no_library",
                 {},
                 {"--plugin", "@dir/candidate.xml", "@dir/candidate.xml"},
                 {"cannot load the plug-in", "@dir/candidate.xml"}},
        BadInput{"missing_plugin",
                 {},
                 {"--plugin", "@dir/none.so", "@dir/candidate.xml"},
                 {"cannot load the plug-in", "@dir/none.so"}},
        BadInput{"plugin_without_entry_points",
                 {},
                 {"--plugin", NOT_A_PLUGIN, "@dir/candidate.xml"},
                 {"no entry point 'get_validation_point'"}},
        BadInput{"yang_directory_without_modules",
                 {},
                 {"--yang", "@dir/", "@dir/candidate.xml"},
                 {"no YANG modules"}},
        BadInput{"log_file_that_cannot_be_opened",
                 {},
                 {"--log", "@dir/none/log", "@dir/candidate.xml"},
                 {"@dir/none/log", "cannot open"}}),
    [](const testing::TestParamInfo<BadInput>& info) { return info.param.name; });

}  // namespace
