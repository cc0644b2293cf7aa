#include "plugin_run.h"

#include <velmw_log.h>

#include "host_transaction.h"
#include "log_relay.h"
#include "plugin_session.h"
#include "trace_line.h"

namespace ipapp_validate {

RunReport RunPlugin(const confdstore::Datastore& datastore, const CallPlan& plan,
                    const PluginLibrary& plugin, const PluginRunSettings& settings) {
    HostTransaction transaction(datastore);
    velmw_log_set_debug_enabled(settings.debug ? 1 : 0);
    LogRelay relay(settings.log);
    PluginSession session(plugin.entry_points(), transaction, plan, settings.keep_going,
                          settings.trace);
    const ChildRun child = RunInChild(
        [&session, &settings](int record_fd) {
            if (settings.trace) {
                TraceCallsToStderr();
            }
            return session.Run(record_fd) ? 0 : 1;
        },
        relay, settings.call_timeout);
    RunReport report = MakeRunReport(
        child, relay.other_lines(), plan.size(),
        [&plan](uint32_t index) { return plan.Label(index); }, settings.keep_going);
    if (report.verdict != Verdict::crashed) {
        relay.ReleaseOtherLines();
    }
    return report;
}

}  // namespace ipapp_validate
