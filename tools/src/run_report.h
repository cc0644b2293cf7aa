// The outcome of a run as the report shows it: per call into the plug-in its
// verdict, and the verdict of the whole run.
#ifndef IPAPP_VALIDATE_RUN_REPORT_H
#define IPAPP_VALIDATE_RUN_REPORT_H

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "call_record.h"
#include "child_process.h"

namespace ipapp_validate {

enum class Verdict { accepted, refused, crashed };

const char* VerdictName(Verdict verdict);

// The exit status of the tool for a verdict: 0, 1 or 3.
int ExitCode(Verdict verdict);

struct Crash {
    std::string cause;   // "exception std::out_of_range", "killed by signal 6 (Aborted)"
    std::string detail;  // the exception's message, or what the plug-in printed
};

struct CallReport {
    Stage stage = Stage::validate;
    std::string point;    // validate calls only
    std::string keypath;  // validate calls only
    Verdict verdict = Verdict::accepted;
    int32_t result = 0;  // what the entry point returned, when it returned
    std::string text;    // the transaction's error text
    std::optional<Crash> crash;
};

struct RunReport {
    Verdict verdict = Verdict::accepted;
    // The validate calls that were made, and any other entry point that
    // failed, in the order of the run.
    std::vector<CallReport> calls;
    size_t fired = 0;  // the planned validate calls
    size_t run = 0;    // the validate calls made
    uint64_t plugin_nanoseconds = 0;

    std::string Summary() const;
};

// What the report says of a planned validate call.
struct CallLabel {
    std::string point;
    std::string keypath;
};

// The label of the planned validate call of an index.
using LabelOf = std::function<CallLabel(uint32_t index)>;

// Puts together what the child reported, how it ended and what it printed
// besides log lines; planned is the number of planned validate calls, and
// label_of names those the report lists.
RunReport MakeRunReport(const ChildRun& child, const std::vector<std::string>& child_output,
                        size_t planned, const LabelOf& label_of, bool keep_going);

}  // namespace ipapp_validate

#endif
