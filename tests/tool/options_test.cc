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
    add(o.max_input_size != confdstore::kDefaultMaxFileSize,
        "max-input-size=" + std::to_string(o.max_input_size));
    add(o.format == OutputFormat::json, "json");
    add(o.format == OutputFormat::junit, "junit");
    add(o.quiet, "quiet");
    add(o.all, "all");
    add(o.keep_going, "keep-going");
    add(o.list_points, "list-points");
    add(o.timing, "timing");
    add(!o.debug, "no-debug");
    add(o.trace, "trace");
    add(o.call_timeout != kDefaultCallTimeout, "timeout=" + std::to_string(o.call_timeout.count()));
    add(o.help, "help");
    add(o.version, "version");
    return text;
}

// The options that differ from the defaults, or "refused: " and the reason.
std::string Parsed(const std::vector<std::string>& arguments) {
    try {
        return NonDefaults(ParseOptions(arguments));
    } catch (const UsageError& error) {
        return std::string("refused: ") + error.what();
    }
}

TEST(Options, AcceptedOrRefusedWithTheReason) {
    const struct {
        std::vector<std::string> arguments;
        const char* parsed;
    } cases[] = {
        {{"c.xml"}, "candidate=c.xml"},
        {{"--running", "r.json", "--candidate=c.xml", "--yang=y", "--plugin", "p.so", "--log=l",
          "--format", "json"},
         "yang=y running=r.json candidate=c.xml plugin=p.so log=l json"},
        {{"--all", "--keep-going", "--no-debug", "--trace", "--timing", "--format=text", "c.xml"},
         "candidate=c.xml all keep-going timing no-debug trace"},
        {{"--format=junit", "c.xml"}, "candidate=c.xml junit"},
        {{"--quiet", "c.xml"}, "candidate=c.xml quiet"},
        {{"--timeout=86400", "c.xml"}, "candidate=c.xml timeout=86400"},
        {{"--call", "a=/x{1}", "--call=b=/y{k=v}", "c.xml"},
         "candidate=c.xml call=a|/x{1} call=b|/y{k=v}"},
        {{"--", "--odd-name.xml"}, "candidate=--odd-name.xml"},
        {{"--max-input-size=3K", "c.xml"}, "candidate=c.xml max-input-size=3072"},
        {{"--max-input-size=2M", "c.xml"}, "candidate=c.xml max-input-size=2097152"},
        {{"--max-input-size=1G", "c.xml"}, "candidate=c.xml max-input-size=1073741824"},
        {{"--list-points"}, "list-points"},
        {{"-h"}, "help"},
        {{"--version"}, "version"},
        {{"--nope", "c.xml"}, "refused: unknown option '--nope'"},
        {{"c.xml", "--log"}, "refused: --log needs a value: FILE"},
        {{"--running=", "c.xml"}, "refused: --running needs a non-empty value"},
        {{"--keep-going=1", "c.xml"}, "refused: --keep-going takes no value"},
        {{"--running", "a", "--running", "b", "c.xml"}, "refused: --running given twice"},
        {{"a.xml", "b.xml"}, "refused: more than one candidate configuration: 'b.xml'"},
        {{"a.xml", "--candidate", "b.xml"},
         "refused: more than one candidate configuration: 'b.xml'"},
        {{"--running", "r.xml"}, "refused: no candidate configuration given"},
        {{"--format", "xml", "c.xml"}, "refused: --format takes text, json or junit, not 'xml'"},
        {{"--quiet", "--format=junit", "c.xml"},
         "refused: --quiet applies to the text report only"},
        {{"--list-points", "--format=junit"},
         "refused: --list-points has no JUnit form: use text or json"},
        {{"--call", "p", "c.xml"}, "refused: --call takes POINT=KEYPATH, not 'p'"},
        {{"--call", "=/x", "c.xml"}, "refused: --call takes POINT=KEYPATH, not '=/x'"},
        {{"--call", "p=", "c.xml"}, "refused: --call takes POINT=KEYPATH, not 'p='"},
        {{"--all", "--call", "p=/x", "c.xml"}, "refused: --all and --call exclude each other"},
        {{"--max-input-size=0", "c.xml"},
         "refused: --max-input-size takes a positive number of bytes with K, M or G or none, "
         "not '0'"},
        {{"--max-input-size=1T", "c.xml"},
         "refused: --max-input-size takes a positive number of bytes with K, M or G or none, "
         "not '1T'"},
        {{"--max-input-size=99999999999G", "c.xml"},
         "refused: --max-input-size takes a positive number of bytes with K, M or G or none, "
         "not '99999999999G'"},
        {{"--timeout", "0", "c.xml"},
         "refused: --timeout takes whole seconds from 1 to 86400, not '0'"},
        {{"--timeout=86401", "c.xml"},
         "refused: --timeout takes whole seconds from 1 to 86400, not '86401'"},
        {{"--timeout=1.5", "c.xml"},
         "refused: --timeout takes whole seconds from 1 to 86400, not '1.5'"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Parsed(c.arguments), c.parsed);
    }
}

}  // namespace
}  // namespace ipapp_validate
