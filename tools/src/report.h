// The report on stdout, as text for people, as one JSON document or as one
// JUnit XML document.
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

// Which calls the text report lists: all, or only the refused and crashed.
enum class Rows { all, problems };

// One row per listed call (verdict, point, keypath), the refusal text or the
// crash under its row, the summary line and, when more than one point ran,
// how many calls each point had.
void WriteTextReport(const RunReport& report, const std::optional<Timing>& timing, Rows rows,
                     std::ostream& out);

void WriteJsonReport(const RunReport& report, const std::optional<Timing>& timing,
                     std::ostream& out);

// A test case per call (name: the point, classname: the keypath), a
// refusal a <failure>, a crash an <error>.
void WriteJunitReport(const RunReport& report, const std::optional<Timing>& timing,
                      std::ostream& out);

// The model's validation points: name, node, how they fire, the rule.
void WritePointList(const std::vector<confdstore::ValidationPoint>& points, OutputFormat format,
                    std::ostream& out);

}  // namespace ipapp_validate

#endif
