// Command lines the tool accepts, and the ones it refuses with a reason.
#include <gtest/gtest.h>

#include "options.h"

namespace ipapp_validate {
namespace {

// The options that differ from the defaults, in a fixed order.
std::string NonDefaults(const Options& o) {
    std::string text;
    const auto add = [&text](bool differs, const std::string& item) {
        text += differs ? (text.empty() ? "" : " ") + item : "";
    };
    add(!o.yang_dir.empty(), "yang=" + o.yang_dir);
    add(!o.running_file.empty(), "running=" + o.running_file);
    add(!o.candidate_file.empty(), "candidate=" + o.candidate_file);
    add(!o.plugin_path.empty(), "plugin=" + o.plugin_path);
    add(!o.log_file.empty(), "log=" + o.log_file);
    for (const ExplicitCall& call : o.calls) {
        add(true, "call=" + call.point + "|" + call.keypath);
    }
    add(o.format == OutputFormat::json, "json");
    add(o.all, "all");
    add(o.keep_going, "keep-going");
    add(o.list_points, "list-points");
    add(o.timing, "timing");
    add(!o.debug, "no-debug");
    add(o.help, "help");
    add(o.version, "version");
    return text;
}

TEST(Options, Accepted) {
    const struct {
        std::vector<std::string> arguments;
        const char* options;
    } cases[] = {
        {{"c.xml"}, "candidate=c.xml"},
        {{"--running", "r.json", "--candidate=c.xml", "--yang=y", "--plugin", "p.so", "--log=l",
          "--format", "json"},
         "yang=y running=r.json candidate=c.xml plugin=p.so log=l json"},
        {{"--all", "--keep-going", "--no-debug", "--timing", "--format=text", "c.xml"},
         "candidate=c.xml all keep-going timing no-debug"},
        {{"--call", "a=/x{1}", "--call=b=/y{k=v}", "c.xml"},
         "candidate=c.xml call=a|/x{1} call=b|/y{k=v}"},
        {{"--", "--odd-name.xml"}, "candidate=--odd-name.xml"},
        {{"--list-points"}, "list-points"},
        {{"-h"}, "help"},
        {{"--version"}, "version"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(NonDefaults(ParseOptions(c.arguments)), c.options);
    }
}

TEST(Options, RefusedWithTheReason) {
    const struct {
        std::vector<std::string> arguments;
        const char* reason;
    } cases[] = {
        {{"--nope", "c.xml"}, "unknown option '--nope'"},
        {{"-x", "c.xml"}, "unknown option '-x'"},
        {{"c.xml", "--log"}, "--log needs a value"},
        {{"--running=", "c.xml"}, "non-empty"},
        {{"--keep-going=1", "c.xml"}, "takes no value"},
        {{"--running", "a", "--running", "b", "c.xml"}, "twice"},
        {{"a.xml", "b.xml"}, "more than one"},
        {{"--candidate", "a.xml", "b.xml"}, "more than one"},
        {{"--running", "r.xml"}, "no candidate"},
        {{"--format", "xml", "c.xml"}, "text or json"},
        {{"--call", "p", "c.xml"}, "POINT=KEYPATH"},
        {{"--call", "=/x", "c.xml"}, "POINT=KEYPATH"},
        {{"--call", "p=", "c.xml"}, "POINT=KEYPATH"},
        {{"--all", "--call", "p=/x", "c.xml"}, "exclude"},
    };
    for (const auto& c : cases) {
        try {
            ParseOptions(c.arguments);
            ADD_FAILURE() << "accepted: " << c.reason;
        } catch (const UsageError& error) {
            EXPECT_NE(std::string(error.what()).find(c.reason), std::string::npos) << error.what();
        }
    }
}

}  // namespace
}  // namespace ipapp_validate
