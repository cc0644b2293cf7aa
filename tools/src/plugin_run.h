// One run of the plug-in over a loaded datastore: the transaction a daemon
// sets up, the planned calls in one child process (so that a crash of the
// plug-in ends only that process), and the report of what they came to.
// Shared by ipapp-validate and the NETCONF twin's commit hook.
#ifndef IPAPP_VALIDATE_PLUGIN_RUN_H
#define IPAPP_VALIDATE_PLUGIN_RUN_H

#include <confd_datastore.h>

#include <cstdio>
#include <vector>

#include "call_plan.h"
#include "child_process.h"
#include "plugin_library.h"
#include "run_report.h"

namespace ipapp_validate {

struct PluginRunSettings {
    bool keep_going = false;  // every planned call, not only up to the first refusal
    bool debug = true;        // the plug-in's debug lines
    FILE* log = stderr;       // where fault reports, debug and trace lines go
    // A call that has not returned by then is killed and reported as crashed.
    std::chrono::seconds call_timeout = kDefaultCallTimeout;
    bool trace = false;  // a line on the log for each ConfD API call the plug-in makes
};

// A fresh library context for this run alone: lib_init, the calls, lib_finish.
RunReport RunPlugin(const confdstore::Datastore& datastore, const CallPlan& plan,
                    const PluginLibrary& plugin, const PluginRunSettings& settings);

}  // namespace ipapp_validate

#endif
