// The plug-in on generated running and candidate configurations: both
// loaded into a datastore, served with the validation transaction the tool
// sets up, and every fired point called in-process through the plug-in's
// entry points, as the tool's child calls them (with --keep-going, so a
// refusal does not end the run).
//
// By design the plug-in refuses, and its conversions throw (a one-character
// route output interface, a malformed OSPF key); the session catches those
// at the call boundary as the tool does. Its type assertions cannot fire:
// the generated data fits the model, and the change walk gives keypaths of
// the model's own shapes. Anything else is a finding.
#include <fcntl.h>
#include <fuzzer/FuzzedDataProvider.h>
#include <velmw_log.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include <ipapp_test_support/confd_fixture.h>

#include "bundled_model.h"
#include "call_plan.h"
#include "generated_configuration.h"
#include "host_transaction.h"
#include "ip_app_valid.h"
#include "plugin_session.h"

namespace {

// The plug-in linked in, its entry points as the tool finds them.
const ipapp_validate::EntryPoints kEntryPoints{get_validation_point, lib_init, validate,
                                               lib_finish};

// Fault reports and debug lines would only slow the fuzzer down.
int QuietSink() {
    velmw_log_set_debug_enabled(0);
    velmw_log_set_stream(std::fopen("/dev/null", "w"));
    return open("/dev/null", O_WRONLY);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
    static const int record_sink = QuietSink();
    FuzzedDataProvider data(bytes, size);
    const ipapp_fuzz::GeneratedConfiguration running(data);
    const ipapp_fuzz::GeneratedConfiguration candidate(data, running);
    confdstore::Datastore datastore(ipapp_test::project_schema());
    try {
        datastore.set_running(running.Xml(), confdstore::DataFormat::xml, "running.xml");
        datastore.set_candidate(candidate.Xml(), confdstore::DataFormat::xml, "candidate.xml");
    } catch (const confdstore::Error& error) {
        // The generator made text the model refuses: its bug, not the plug-in's.
        std::fprintf(stderr, "generated configuration refused: %s\n", error.what());
        std::abort();
    }
    ipapp_validate::HostTransaction transaction(datastore);
    const ipapp_validate::CallPlan plan =
        ipapp_validate::PlanChangedCalls(ipapp_fuzz::BundledPoints(), datastore);
    ipapp_validate::PluginSession session(kEntryPoints, transaction, plan, true);
    session.Run(record_sink);
    return 0;
}
