#include <algorithm>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "message_line.h"
#include "report.h"

namespace ipapp_validate {
namespace {

constexpr size_t kVerdictWidth = 10;  // "accepted", "refused", "crashed" and a gap

std::string Padded(const std::string& text, size_t width) {
    return text.size() >= width ? text + " " : text + std::string(width - text.size(), ' ');
}

// Each line of text below a row, indented to the row's second column, so
// that no line of it starts like a row. The plug-in's texts may echo data:
// control characters other than line breaks and tabs, and bytes that are
// not UTF-8, are escaped (the JSON and JUnit reports keep the exact text).
void WriteIndented(const std::string& raw_text, std::ostream& out) {
    const std::string indent(kVerdictWidth, ' ');
    const std::string text = PrintableLines(raw_text);
    size_t start = 0;
    for (size_t newline = text.find('\n'); newline != std::string::npos;
         newline = text.find('\n', start)) {
        out << indent << text.substr(start, newline - start) << '\n';
        start = newline + 1;
    }
    out << indent << text.substr(start) << '\n';
}

// The point and keypath come from the model and the data; a row stays one
// line whatever they hold.
std::string Label(const CallReport& call) {
    return call.stage == Stage::validate ? Printable(call.point) : StageName(call.stage);
}

void WriteCall(const CallReport& call, size_t label_width, std::ostream& out) {
    out << Padded(VerdictName(call.verdict), kVerdictWidth);
    out << (call.keypath.empty() ? Label(call)
                                 : Padded(Label(call), label_width) + Printable(call.keypath))
        << '\n';
    if (call.crash) {
        WriteIndented("plug-in crashed: " + call.crash->cause, out);
        if (!call.crash->detail.empty()) {
            WriteIndented(call.crash->detail, out);
        }
    } else if (call.verdict == Verdict::refused) {
        WriteIndented(call.text.empty() ? "(refused without an error text)" : call.text, out);
    }
}

bool Shown(const CallReport& call, Rows rows) {
    return rows == Rows::all || call.verdict != Verdict::accepted;
}

// How many validate calls each point had, in the order the points first
// ran; only when more than one point ran, as the summary's count says the
// rest.
void WriteCallsPerPoint(const RunReport& report, std::ostream& out) {
    std::vector<std::pair<std::string, size_t>> counts;
    for (const CallReport& call : report.calls) {
        if (call.stage != Stage::validate) {
            continue;
        }
        const auto same_point = [&](const auto& count) { return count.first == call.point; };
        const auto found = std::find_if(counts.begin(), counts.end(), same_point);
        if (found == counts.end()) {
            counts.emplace_back(call.point, 1);
        } else {
            ++found->second;
        }
    }
    if (counts.size() < 2) {
        return;
    }
    out << "calls per point:";
    for (size_t i = 0; i < counts.size(); ++i) {
        out << (i == 0 ? " " : ", ") << Printable(counts[i].first) << " x " << counts[i].second;
    }
    out << '\n';
}

}  // namespace

void WriteTextReport(const RunReport& report, const std::optional<Timing>& timing, Rows rows,
                     std::ostream& out) {
    size_t label_width = 0;
    for (const CallReport& call : report.calls) {
        label_width =
            Shown(call, rows) ? std::max(label_width, Label(call).size() + 2) : label_width;
    }
    for (const CallReport& call : report.calls) {
        if (Shown(call, rows)) {
            WriteCall(call, label_width, out);
        }
    }
    out << report.Summary() << '\n';
    WriteCallsPerPoint(report, out);
    if (timing) {
        char line[128];
        std::snprintf(line, sizeof line, "time: %.1f ms in all, %.1f ms in the plug-in\n",
                      timing->total_ms, timing->plugin_ms);
        out << line;
    }
}

}  // namespace ipapp_validate
