// Configuration text through the tool's input path: the datastore's parse
// and validation against the bundled model, the change walk against the
// example device, and the call plans the tool makes from it.
//
// The first byte chooses: its lowest bit the format (0 XML, 1 JSON), the
// next bit the role (0 the text is the candidate and the example the running
// configuration, 1 the other way round). The rest is the text. Bad input
// (confdstore::Error) is an expected outcome.
#include <cstddef>
#include <cstdint>
#include <string>

#include <ipapp_test_support/confd_fixture.h>

#include "bundled_model.h"
#include "call_plan.h"

namespace {

using confdstore::DataFormat;
using confdstore::Datastore;

// A datastore that holds the example in one role; the fuzz input takes the
// other.
Datastore ExampleIn(bool running) {
    Datastore datastore(ipapp_test::project_schema());
    const std::string& example = ipapp_fuzz::ExampleRunning();
    if (running) {
        datastore.set_running(example, DataFormat::xml, "running.xml");
    } else {
        datastore.set_candidate(example, DataFormat::xml, "candidate.xml");
    }
    return datastore;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static Datastore example_running = ExampleIn(true);
    static Datastore example_candidate = ExampleIn(false);
    if (size == 0) {
        return 0;
    }
    const DataFormat format = (data[0] & 1) != 0 ? DataFormat::json : DataFormat::xml;
    const bool text_is_running = (data[0] & 2) != 0;
    const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
    Datastore& datastore = text_is_running ? example_candidate : example_running;
    try {
        if (text_is_running) {
            datastore.set_running(text, format, "running");
        } else {
            datastore.set_candidate(text, format, "candidate");
        }
    } catch (const confdstore::Error&) {
        return 0;
    }
    const auto& points = ipapp_fuzz::BundledPoints();
    // Every call's keypath and new value made, as the run makes them.
    for (const ipapp_validate::CallPlan& plan :
         {ipapp_validate::PlanChangedCalls(points, datastore),
          ipapp_validate::PlanAllCalls(points, datastore)}) {
        for (size_t call = 0; call < plan.size(); ++call) {
            plan.Label(call);
        }
    }
    return 0;
}
