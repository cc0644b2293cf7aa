#include "run_report.h"

#include <cstring>

#include "record_codec.h"

namespace ipapp_validate {
namespace {

std::string JoinLines(const std::vector<std::string>& lines) {
    std::string joined;
    for (const std::string& line : lines) {
        joined += (joined.empty() ? "" : "\n") + line;
    }
    return joined;
}

std::string DescribeEnd(const ChildEnd& end) {
    if (end.timed_out_after.count() > 0) {
        return "timed out after " + std::to_string(end.timed_out_after.count()) + " s";
    }
    if (end.signaled) {
        return "killed by signal " + std::to_string(end.code) + " (" + strsignal(end.code) + ")";
    }
    return "exited with status " + std::to_string(end.code);
}

// The planned calls: how many, and what each is called.
struct Planned {
    size_t size;
    const LabelOf& label_of;
};

CallReport ReportOf(const CallRecord& record, const Planned& planned) {
    CallReport report;
    report.stage = record.stage;
    if (record.stage == Stage::validate && record.index < planned.size) {
        CallLabel label = planned.label_of(record.index);
        report.point = std::move(label.point);
        report.keypath = std::move(label.keypath);
    }
    if (record.ending == Ending::exception) {
        report.verdict = Verdict::crashed;
        report.crash = Crash{"exception " + record.exception_type, record.text};
        return report;
    }
    report.result = record.result;
    if (record.stage == Stage::validate) {
        report.text = record.text;
    }
    if (record.result != 0) {
        // A refused validation, or a plug-in that could not start.
        report.verdict = record.stage == Stage::validate ? Verdict::refused : Verdict::crashed;
        if (report.verdict == Verdict::crashed) {
            report.crash = Crash{
                std::string(StageName(record.stage)) + " returned " + std::to_string(record.result),
                std::string()};
        }
    }
    return report;
}

// Only failures of the entry points around the validate calls are reported.
bool Reported(const CallReport& report) {
    return report.stage == Stage::validate || report.verdict != Verdict::accepted;
}

// The call the child was in when it died, and how it died.
CallReport DeathReport(const std::optional<NextCall>& dying, const ChildRun& child,
                       const std::vector<std::string>& child_output, const Planned& planned) {
    CallRecord record;
    record.stage = dying ? dying->stage : Stage::lib_finish;
    record.index = dying ? dying->index : 0;
    CallReport report = ReportOf(record, planned);
    report.verdict = Verdict::crashed;
    report.crash = Crash{DescribeEnd(child.end), JoinLines(child_output)};
    return report;
}

Verdict Worst(Verdict a, Verdict b) {
    return static_cast<int>(a) > static_cast<int>(b) ? a : b;
}

}  // namespace

const char* VerdictName(Verdict verdict) {
    switch (verdict) {
        case Verdict::accepted:
            return "accepted";
        case Verdict::refused:
            return "refused";
        case Verdict::crashed:
            return "crashed";
    }
    return "?";
}

int ExitCode(Verdict verdict) {
    switch (verdict) {
        case Verdict::accepted:
            return 0;
        case Verdict::refused:
            return 1;
        case Verdict::crashed:
            return 3;
    }
    return 3;
}

RunReport MakeRunReport(const ChildRun& child, const std::vector<std::string>& child_output,
                        size_t planned_calls, const LabelOf& label_of, bool keep_going) {
    const Planned planned{planned_calls, label_of};
    RunReport report;
    report.fired = planned_calls;
    const DecodedRecords decoded = DecodeRecords(child.records);
    for (const CallRecord& record : decoded.records) {
        report.plugin_nanoseconds += record.nanoseconds;
        CallReport call = ReportOf(record, planned);
        if (Reported(call)) {
            report.calls.push_back(std::move(call));
        }
    }
    const std::optional<NextCall> unfinished =
        FollowingCall(decoded.records, planned_calls, keep_going);
    const bool died = unfinished || decoded.torn || child.end.signaled || child.end.code != 0;
    if (died) {
        report.calls.push_back(DeathReport(unfinished, child, child_output, planned));
    }
    for (const CallReport& call : report.calls) {
        report.verdict = Worst(report.verdict, call.verdict);
        report.run += call.stage == Stage::validate ? 1 : 0;
    }
    return report;
}

std::string RunReport::Summary() const {
    size_t refused = 0;
    size_t crashed = 0;
    std::string crashed_entry;
    for (const CallReport& call : calls) {
        refused += call.verdict == Verdict::refused ? 1 : 0;
        crashed += call.verdict == Verdict::crashed ? 1 : 0;
        if (call.verdict == Verdict::crashed && call.stage != Stage::validate) {
            crashed_entry = StageName(call.stage);
        }
    }
    const std::string of_fired = " of " + std::to_string(fired) + " validation calls";
    const std::string not_run =
        run < fired ? ", " + std::to_string(fired - run) + " not run" : std::string();
    switch (verdict) {
        case Verdict::accepted:
            return fired == 0
                       ? "accepted: no validation point fired"
                       : "accepted: " + std::to_string(fired) + " validation calls, none refused";
        case Verdict::refused:
            return "refused: " + std::to_string(refused) + of_fired + " refused" +
                   (not_run.empty() ? "" : "; stopped at the first refusal" + not_run);
        case Verdict::crashed:
            if (!crashed_entry.empty()) {
                return "plug-in crashed in " + crashed_entry + "; " + std::to_string(refused) +
                       of_fired + " refused" + not_run;
            }
            return "plug-in crashed: " + std::to_string(crashed) + of_fired + " crashed, " +
                   std::to_string(refused) + " refused" + not_run;
    }
    return std::string();
}

}  // namespace ipapp_validate
