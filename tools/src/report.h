// The report on stdout, as text for people or as one JSON document.
#ifndef IPAPP_VALIDATE_REPORT_H
#define IPAPP_VALIDATE_REPORT_H

#include <confd_datastore.h>

#include <optional>
#include <ostream>
#include <vector>

#include "options.h"
#include "run_report.h"

namespace ipapp_validate {

struct Timing {
    double total_ms = 0;
    double plugin_ms = 0;  // inside the plug-in's entry points
};

// One row per call (verdict, point, keypath), the refusal text or the crash
// under its row, and the summary line.
void WriteTextReport(const RunReport& report, const std::optional<Timing>& timing,
                     std::ostream& out);

void WriteJsonReport(const RunReport& report, const std::optional<Timing>& timing,
                     std::ostream& out);

// The model's validation points: name, node, how they fire, the rule.
void WritePointList(const std::vector<confdstore::ValidationPoint>& points, OutputFormat format,
                    std::ostream& out);

}  // namespace ipapp_validate

#endif
