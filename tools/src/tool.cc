#include "tool.h"

#include <signal.h>

#include <chrono>
#include <cstdio>
#include <initializer_list>
#include <new>
#include <optional>
#include <sstream>
#include <string_view>

#include "activity.h"
#include "bundled_files.h"
#include "call_plan.h"
#include "input_error.h"
#include "kept_until_exit.h"
#include "log_file.h"
#include "message_line.h"
#include "options.h"
#include "plugin_library.h"
#include "plugin_run.h"
#include "report.h"
#include "run_report.h"

namespace ipapp_validate {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kBadInput = 2;

// The line of the parts given. Never throws: out of memory, the line is a
// fixed one.
void ErrorLine(std::initializer_list<std::string_view> parts) noexcept {
    try {
        std::string message;
        for (std::string_view part : parts) {
            message += part;
        }
        std::fprintf(stderr, "ipapp-validate: %s\n", MessageLine(message).c_str());
    } catch (...) {
        std::fputs("ipapp-validate: out of memory\n", stderr);
    }
}

// The whole text at once, so that a run that fails leaves nothing half
// written. A closed stdout (a pager that quit) is not the verdict's concern.
void WriteStdout(const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

CallPlan Plan(const Options& options, const std::vector<confdstore::ValidationPoint>& points,
              const confdstore::Datastore& datastore) {
    if (!options.calls.empty()) {
        return PlanExplicitCalls(options.calls, datastore);
    }
    if (options.all) {
        return PlanAllCalls(points, datastore);
    }
    return PlanChangedCalls(points, datastore);
}

confdstore::Datastore LoadConfigurations(const confdstore::Schema& schema, const Options& options,
                                         Activity& activity) {
    confdstore::Datastore datastore(schema);
    if (!options.running_file.empty()) {
        activity.Start("loading " + options.running_file);
        datastore.load_running(options.running_file, options.max_input_size);
    }
    activity.Start("loading " + options.candidate_file);
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
    } else if (options.format == OutputFormat::junit) {
        WriteJunitReport(report, timing, out);
    } else {
        WriteTextReport(report, timing, options.quiet ? Rows::problems : Rows::all, out);
    }
    WriteStdout(out.str());
}

// Loads everything, runs the plug-in and writes the report. Bad input throws
// before anything reaches stdout. activity names each step as it starts, for
// the line that reports a failure of the tool's own.
int Validate(const Options& options, Clock::time_point start, Activity& activity) {
    // From the model to the configurations' trees the work is libyang's.
    std::optional<FatalSignalGuard> fatal_signals;
    fatal_signals.emplace();
    const std::string yang_dir =
        options.yang_dir.empty() ? BundledYangDirectory() : options.yang_dir;
    activity.Start("loading the model in " + yang_dir);
    const confdstore::Schema& schema = KeptUntilExit(confdstore::Schema::load(yang_dir));
    const std::vector<confdstore::ValidationPoint> points = schema.validation_points();
    if (options.list_points) {
        activity.Start("listing the validation points");
        std::ostringstream out;
        WritePointList(points, options.format, out);
        WriteStdout(out.str());
        return 0;
    }
    const confdstore::Datastore& datastore =
        KeptUntilExit(LoadConfigurations(schema, options, activity));
    activity.Start("opening the log file " + options.log_file);
    const LogFile log(options.log_file);
    // The plug-in's code runs from here on: its faults are its own.
    fatal_signals.reset();
    const std::string plugin_path =
        options.plugin_path.empty() ? BundledPlugin() : options.plugin_path;
    activity.Start("loading the plug-in " + plugin_path);
    const PluginLibrary plugin(plugin_path);
    activity.Start("planning the calls for " + options.candidate_file);
    const CallPlan plan = Plan(options, points, datastore);
    activity.Start("running the plug-in on " + options.candidate_file);
    const RunReport report = RunPlugin(
        datastore, plan, plugin,
        {options.keep_going, options.debug, log.stream(), options.call_timeout, options.trace});
    activity.Start("writing the report on " + options.candidate_file);
    WriteReport(options, report, start);
    return ExitCode(report.verdict);
}

// Parses the options and runs; bad usage, bad input and failures of the tool
// throw.
int ParseAndRun(const std::vector<std::string>& arguments, Clock::time_point start,
                Activity& activity) {
    activity.Start("reading the command line");
    const Options options = ParseOptions(arguments);
    if (options.help) {
        WriteStdout(HelpText());
        return 0;
    }
    if (options.version) {
        WriteStdout("ipapp-validate " IPAPP_VERSION "\n");
        return 0;
    }
    return Validate(options, start, activity);
}

}  // namespace

int RunTool(const std::vector<std::string>& arguments) {
    const Clock::time_point start = Clock::now();
    // Writes to a closed pipe fail with EPIPE instead of killing the tool.
    signal(SIGPIPE, SIG_IGN);
    Activity activity;
    // Bad usage and bad input name the file and the problem themselves.
    try {
        return ParseAndRun(arguments, start, activity);
    } catch (const UsageError& error) {
        ErrorLine({error.what(), " (see --help)"});
    } catch (const InputError& error) {
        ErrorLine({error.what()});
    } catch (const confdstore::Error& error) {
        ErrorLine({error.what()});
    } catch (const std::bad_alloc&) {
        ErrorLine({"out of memory while ", activity.what()});
    } catch (const std::exception& error) {
        ErrorLine({activity.what(), " failed: ", error.what()});
    } catch (...) {
        ErrorLine({activity.what(), " failed"});
    }
    return kBadInput;
}

}  // namespace ipapp_validate
