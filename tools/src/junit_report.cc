#include <cstdio>
#include <string>

#include "message_line.h"
#include "report.h"

namespace ipapp_validate {
namespace {

// text as XML 1.0 character data, fit for an attribute value as well:
// markup characters as entities, line breaks and tabs as character
// references (attribute values keep them so), and the characters XML 1.0
// cannot carry, bytes that are not UTF-8 and backslashes escaped visibly as
// the text report escapes them (\xNN, \r, \\).
std::string XmlEscaped(const std::string& text) {
    std::string escaped;
    for (char c : PrintableLines(text)) {
        switch (c) {
            case '&':
                escaped += "&amp;";
                break;
            case '<':
                escaped += "&lt;";
                break;
            case '>':
                escaped += "&gt;";
                break;
            case '"':
                escaped += "&quot;";
                break;
            case '\'':
                escaped += "&apos;";
                break;
            case '\n':
                escaped += "&#10;";
                break;
            case '\t':
                escaped += "&#9;";
                break;
            default:
                escaped += c;
        }
    }
    return escaped;
}

std::string Attribute(const char* name, const std::string& value) {
    return std::string(" ") + name + "=\"" + XmlEscaped(value) + "\"";
}

// Entry points other than validate have no keypath; their class is the
// plug-in's life cycle.
std::string ClassName(const CallReport& call) {
    return call.stage == Stage::validate ? call.keypath : "plug-in";
}

std::string Name(const CallReport& call) {
    return call.stage == Stage::validate ? call.point : StageName(call.stage);
}

void WriteTestCase(const CallReport& call, std::ostream& out) {
    out << "  <testcase" << Attribute("name", Name(call))
        << Attribute("classname", ClassName(call));
    if (call.crash) {
        out << ">\n    <error" << Attribute("message", "plug-in crashed: " + call.crash->cause)
            << Attribute("type", "crash") << ">" << XmlEscaped(call.crash->detail)
            << "</error>\n  </testcase>\n";
    } else if (call.verdict == Verdict::refused) {
        out << ">\n    <failure" << Attribute("message", call.text) << Attribute("type", "refused")
            << "/>\n  </testcase>\n";
    } else {
        out << "/>\n";
    }
}

size_t CountOf(const RunReport& report, Verdict verdict) {
    size_t count = 0;
    for (const CallReport& call : report.calls) {
        count += call.verdict == verdict ? 1 : 0;
    }
    return count;
}

std::string Seconds(double milliseconds) {
    char seconds[32];
    std::snprintf(seconds, sizeof seconds, "%.3f", milliseconds / 1000);
    return seconds;
}

}  // namespace

void WriteJunitReport(const RunReport& report, const std::optional<Timing>& timing,
                      std::ostream& out) {
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuite"
        << Attribute("name", "ipapp-validate")
        << Attribute("tests", std::to_string(report.calls.size()))
        << Attribute("failures", std::to_string(CountOf(report, Verdict::refused)))
        << Attribute("errors", std::to_string(CountOf(report, Verdict::crashed)));
    if (timing) {
        out << Attribute("time", Seconds(timing->total_ms));
    }
    out << ">\n  <properties>\n    <property" << Attribute("name", "summary")
        << Attribute("value", report.Summary()) << "/>\n  </properties>\n";
    for (const CallReport& call : report.calls) {
        WriteTestCase(call, out);
    }
    out << "</testsuite>\n";
}

}  // namespace ipapp_validate
