// The plug-in's address, route and OSPFv2 checks of one commit, in-process,
// on a device's whole configuration at 1, 4 and 16 times the device at its
// limits (256 l3 interfaces, 1000 route units; device_generator.h), with no
// running configuration, so that every point of the six address and route
// handlers fires (commit_checks.h).
//
// Commit: per iteration lib_init, the eleven calls (the two route points,
// then the l3, loopback and mgmt points in the model's order) and lib_finish:
// the snapshot read through MAAPI and every check. At 4x and 16x the route
// limit refuses both route points; the checks still run to their end
// (the next-hop check runs before the limit, and no other conflict exists).
//
// Check: one call on a snapshot a commit's calls have already read, so the
// time is that point's checks alone.
#include <benchmark/benchmark.h>
#include <velmw_log.h>

#include <memory>
#include <string>

#include "commit_checks.h"
#include "generated_files.h"

namespace {

constexpr size_t kScales[] = {1, 4, 16};

// The device of one scale in a datastore; one at a time, as they all serve
// the same agent address. Released before main returns, while the
// platform's libraries are whole.
size_t current_scale = 0;
std::unique_ptr<ipapp_bench::CommitChecks> current;

ipapp_bench::CommitChecks& ChecksOfScale(size_t scale) {
    if (scale != current_scale) {
        current.reset();
        current = std::make_unique<ipapp_bench::CommitChecks>(
            IPAPP_YANG_DIR, ipapp_bench::DeviceOfScale(scale).file);
        current_scale = scale;
    }
    return *current;
}

void Commit(benchmark::State& state, size_t scale) {
    ipapp_bench::CommitChecks& checks = ChecksOfScale(scale);
    size_t refused = 0;
    for (auto _ : state) {
        refused = checks.Commit();
    }
    state.counters["nodes"] = static_cast<double>(ipapp_bench::DeviceOfScale(scale).nodes);
    state.counters["calls"] = static_cast<double>(checks.calls());
    state.counters["refused"] = static_cast<double>(refused);
}

void Check(benchmark::State& state, size_t scale, size_t call) {
    ipapp_bench::CommitChecks& checks = ChecksOfScale(scale);
    checks.ReadSnapshot();
    int result = 0;
    for (auto _ : state) {
        result = checks.Call(call);
    }
    state.counters["refused"] = result != 0 ? 1 : 0;
}

// Per scale the commit, then each call; scales in turn, so each device is
// loaded once. Every size fires the same calls.
void RegisterAll() {
    const ipapp_bench::CommitChecks& calls = ChecksOfScale(kScales[0]);
    for (size_t scale : kScales) {
        const std::string size = "/" + std::to_string(scale) + "x";
        const int iterations = scale == 16 ? 2 : 5;
        benchmark::RegisterBenchmark(("Commit" + size).c_str(), Commit, scale)
            ->Unit(benchmark::kMillisecond)
            ->Iterations(iterations);
        for (size_t call = 0; call < calls.calls(); ++call) {
            benchmark::RegisterBenchmark(("Check/" + calls.call_name(call) + size).c_str(), Check,
                                         scale, call)
                ->Unit(benchmark::kMillisecond)
                ->Iterations(iterations);
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    // The route limit's debug line would come once per refused call.
    velmw_log_set_debug_enabled(0);
    RegisterAll();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    current.reset();
    benchmark::Shutdown();
    return 0;
}
