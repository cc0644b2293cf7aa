#include "tool.h"

#include <signal.h>

#include <chrono>
#include <cstdio>
#include <sstream>

#include "bundled_files.h"
#include "call_plan.h"
#include "input_error.h"
#include "log_file.h"
#include "options.h"
#include "plugin_library.h"
#include "plugin_run.h"
#include "report.h"
#include "run_report.h"

namespace ipapp_validate {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kBadInput = 2;

void ErrorLine(const std::string& message) {
    std::fprintf(stderr, "ipapp-validate: %s\n", message.c_str());
}

// The whole text at once, so that a run that fails leaves nothing half
// written. A closed stdout (a pager that quit) is not the verdict's concern.
void WriteStdout(const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

std::vector<PlannedCall> Plan(const Options& options,
                              const std::vector<confdstore::ValidationPoint>& points,
                              const confdstore::Datastore& datastore) {
    if (!options.calls.empty()) {
        return PlanExplicitCalls(options.calls, datastore);
    }
    if (options.all) {
        return PlanAllCalls(points, datastore);
    }
    return PlanChangedCalls(points, datastore);
}

confdstore::Datastore LoadConfigurations(const confdstore::Schema& schema, const Options& options) {
    confdstore::Datastore datastore(schema);
    if (!options.running_file.empty()) {
        datastore.load_running(options.running_file, options.max_input_size);
    }
    datastore.load_candidate(options.candidate_file, options.max_input_size);
    return datastore;
}

double Milliseconds(Clock::duration duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
}

void WriteReport(const Options& options, const RunReport& report, Clock::time_point start) {
    std::optional<Timing> timing;
    if (options.timing) {
        timing = Timing{Milliseconds(Clock::now() - start),
                        static_cast<double>(report.plugin_nanoseconds) / 1e6};
    }
    std::ostringstream out;
    if (options.format == OutputFormat::json) {
        WriteJsonReport(report, timing, out);
    } else {
        WriteTextReport(report, timing, out);
    }
    WriteStdout(out.str());
}

// Loads everything, runs the plug-in and writes the report. Bad input throws
// before anything reaches stdout.
int Validate(const Options& options, Clock::time_point start) {
    const confdstore::Schema schema = confdstore::Schema::load(
        options.yang_dir.empty() ? BundledYangDirectory() : options.yang_dir);
    const std::vector<confdstore::ValidationPoint> points = schema.validation_points();
    if (options.list_points) {
        std::ostringstream out;
        WritePointList(points, options.format, out);
        WriteStdout(out.str());
        return 0;
    }
    const confdstore::Datastore datastore = LoadConfigurations(schema, options);
    const LogFile log(options.log_file);
    const PluginLibrary plugin(options.plugin_path.empty() ? BundledPlugin() : options.plugin_path);
    std::vector<PlannedCall> plan = Plan(options, points, datastore);
    const RunReport report =
        RunPlugin(datastore, plan, plugin,
                  {options.keep_going, options.debug, log.stream(), options.call_timeout});
    WriteReport(options, report, start);
    return ExitCode(report.verdict);
}

}  // namespace

int RunTool(const std::vector<std::string>& arguments) {
    const Clock::time_point start = Clock::now();
    // Writes to a closed pipe fail with EPIPE instead of killing the tool.
    signal(SIGPIPE, SIG_IGN);
    Options options;
    try {
        options = ParseOptions(arguments);
    } catch (const UsageError& error) {
        ErrorLine(std::string(error.what()) + " (see --help)");
        return kBadInput;
    }
    if (options.help) {
        WriteStdout(HelpText());
        return 0;
    }
    if (options.version) {
        WriteStdout("ipapp-validate " IPAPP_VERSION "\n");
        return 0;
    }
    try {
        return Validate(options, start);
    } catch (const std::exception& error) {
        ErrorLine(error.what());
        return kBadInput;
    }
}

}  // namespace ipapp_validate
