// Bad input of every kind: one line on stderr that names the problem, exit
// status 2, and nothing on stdout.
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>

#include "config_xml.h"
#include "ipapp_test_support/scratch_directory.h"
#include "message_line.h"
#include "tool_run.h"

namespace {

using ipapp_generator::Element;
using ipapp_generator::Interfaces;
using ipapp_generator::L3;
using namespace std::string_literals;

const std::string kCandidate = Interfaces(L3("5"));

const std::string kModelViolation =
    Interfaces(L3("5", ipapp_generator::IPv6({}, Element("max-interval", "70000"))));

#ifndef IPAPP_SANITIZE
// So many interfaces that libyang's tree of them does not fit in 100 MB.
std::string ManyInterfaces() {
    std::string interfaces;
    for (int name = 0; name < 100000; ++name) {
        interfaces += L3(std::to_string(name));
    }
    return Interfaces(interfaces);
}
#endif

std::string WithVlan(const std::string& vlan) {
    return Interfaces(L3("5", Element("lower-layer-if", Element("vlan", vlan))));
}

struct BadInput {
    // A file to write into the case's directory first (a name that ends in
    // "/" is a directory), and its content; content that starts with "->" makes
    // the file a symbolic link to the rest.
    std::string file;
    std::string content;
    // "@/" in arguments and fragments stands for the case's directory.
    std::vector<std::string> arguments;
    std::vector<std::string> fragments;  // what the one line holds
    std::string before_command{};        // shell words: "ulimit -v N;"
};

const BadInput kBadInputs[] = {
    {"", "", {"@/none.xml"}, {"@/none.xml", "cannot read"}},
    {"dir.xml/", "", {"--candidate", "@/dir.xml"}, {"@/dir.xml", "cannot read"}},
    {"bad.xml",
     "<config xmlns=\"urn:ipapp:yang:device-config\"><interface>",
     {"@/bad.xml"},
     {"@/bad.xml: "}},
    {"bad.json", "{\"x\": 1", {"@/bad.json"}, {"@/bad.json: "}},
    {"violation.xml",
     kModelViolation,
     {"@/violation.xml"},
     {"@/violation.xml: ", "70000", "max-interval"}},
    {"unknown.xml",
     R"(<config xmlns="urn:ipapp:yang:device-config"><nosuch/></config>)",
     {"@/unknown.xml"},
     {"@/unknown.xml: ", "nosuch"}},
    {"candidate.txt", kCandidate, {"@/candidate.txt"}, {"@/candidate.txt", ".xml or .json"}},
    {"", "", {"--frobnicate", "@/candidate.xml"}, {"'--frobnicate'"}},
    {"",
     "",
     {"--call", "p=/config/interface/nothing{5}", "@/candidate.xml"},
     {"--call p=/config/interface/nothing{5}"}},
    {"",
     "",
     {"--plugin", "@/candidate.xml", "@/candidate.xml"},
     {"cannot load the plug-in", "@/candidate.xml"}},
    {"",
     "",
     {"--plugin", NOT_A_PLUGIN, "@/candidate.xml"},
     {"no entry point 'get_validation_point'"}},
    {"", "", {"--yang", "@/", "@/candidate.xml"}, {"no YANG modules"}},
    {"", "", {"--log", "@/none/log", "@/candidate.xml"}, {"@/none/log", "cannot open"}},
    {"nul.xml",
     "<config xmlns=\"urn:ipapp:yang:device-config\"/>\0<rtmStaticRtEntry/>"s,
     {"@/nul.xml"},
     {"@/nul.xml: NUL byte at offset 46"}},
    {"garbage.json",
     "{\"device-config:config\":{}}\n\ngarbage\n",
     {"--running", "@/garbage.json", "@/candidate.xml"},
     {"@/garbage.json: content after the JSON value at offset 29"}},
    {"cut.json",
     R"({"device-config:config":)",
     {"@/cut.json"},
     {"@/cut.json: the JSON value is not closed at the end of the file"}},
    {"mem.xml", "->/proc/self/mem", {"@/mem.xml"}, {"@/mem.xml: cannot read: Input/output error"}},
    {"zero.xml",
     "->/dev/zero",
     {"--max-input-size", "1M", "@/zero.xml"},
     {"@/zero.xml: larger than 1048576 bytes, the input size limit"}},
    {"",
     "",
     {"--max-input-size=100", "--running", "@/candidate.xml", "@/candidate.xml"},
     {"@/candidate.xml: larger than 100 bytes, the input size limit"}},
    // Control characters, bytes that are not UTF-8 and long echoes, from the
    // command line or from libyang's message, stay on one line.
    {"",
     "",
     {"--call", "p=/config/interface/l3{a\nb}", "@/candidate.xml"},
     {"--call p=/config/interface/l3{a\\nb}: /config/interface/l3{a\\nb}: control character in "
      "path at offset 22"}},
    {"",
     "",
     {"@/new\nline\x7F\xC2\x85\xFF.xml"},
     {"@/new\\nline\\x7F\\xC2\\x85\\xFF.xml: cannot read: No such file or directory"}},
    {"vlan.xml",
     WithVlan("1\n2"),
     {"@/vlan.xml"},
     {"@/vlan.xml: Invalid type int32 value \"1\\n2\"."}},
    {"long.xml", WithVlan(std::string(1000, '7')), {"@/long.xml"}, {"@/long.xml: ", "777..."}},
#ifndef IPAPP_SANITIZE
    {"many.xml", ManyInterfaces(), {"@/many.xml"}, {"@/many.xml"}, "ulimit -v 100000;"},
#endif
};

std::string Expand(std::string text, const std::string& directory) {
    for (size_t at = text.find("@/"); at != std::string::npos;
         at = text.find("@/", at + directory.size())) {
        text.replace(at, 2, directory);
    }
    return text;
}

TEST(Tool, BadInputIsOneLineExitTwoNothingOnStdout) {
    for (const BadInput& input : kBadInputs) {
        const ipapp_test::ScratchDirectory scratch;
        const std::string directory = scratch.path().string() + '/';
        std::ofstream(directory + "candidate.xml") << kCandidate;
        if (!input.file.empty() && input.file.back() == '/') {
            std::filesystem::create_directory(directory + input.file);
        } else if (input.content.rfind("->", 0) == 0) {
            std::filesystem::create_symlink(input.content.substr(2), directory + input.file);
        } else if (!input.file.empty()) {
            std::ofstream(directory + input.file) << input.content;
        }
        std::vector<std::string> arguments;
        for (const std::string& argument : input.arguments) {
            arguments.push_back(Expand(argument, directory));
        }
        const ToolRun run = RunIpappValidate(arguments, input.before_command);
        SCOPED_TRACE(run.err);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err.rfind("ipapp-validate: ", 0), 0u);
        EXPECT_EQ(run.err.find('\n'), run.err.size() - 1);
        EXPECT_LE(run.err.size(),
                  std::strlen("ipapp-validate: ...\n") + ipapp_validate::kMaxMessageLineBytes);
        for (const std::string& fragment : input.fragments) {
            EXPECT_NE(run.err.find(Expand(fragment, directory)), std::string::npos) << fragment;
        }
    }
}

}  // namespace
