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
//
// MaapiElementRead and CursorStep: the platform's two reading primitives on
// the 1x device's candidate, through the transaction the calls use: one
// maapi_get_elem of an l3 interface's address (interfaces in turn), and one
// maapi_get_next over the l3 list (the time of whole walks per step).
#include <benchmark/benchmark.h>
#include <confd_maapi.h>
#include <velmw_log.h>

#include <memory>
#include <string>
#include <vector>

#include "commit_checks.h"
#include "device_generator.h"
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

constexpr const char* kL3List = "/config/interface/ipapp:l3";

void MaapiElementRead(benchmark::State& state) {
    ipapp_bench::CommitChecks& checks = ChecksOfScale(1);
    std::vector<std::string> paths;
    for (size_t l3 = 1; l3 <= ipapp_generator::ScaledDevice(1).l3; ++l3) {
        paths.push_back(std::string(kL3List) + "{" + std::to_string(l3) + "}/ipv4/address/ip");
    }
    size_t next = 0;
    for (auto _ : state) {
        confd_value_t value;
        if (maapi_get_elem(checks.maapi_socket(), checks.thandle(), &value, "%s",
                           paths[next].c_str()) != CONFD_OK) {
            state.SkipWithError("maapi_get_elem failed");
            return;
        }
        confd_free_value(&value);
        next = (next + 1) % paths.size();
    }
}

void CursorStep(benchmark::State& state) {
    ipapp_bench::CommitChecks& checks = ChecksOfScale(1);
    size_t steps = 0;
    for (auto _ : state) {
        maapi_cursor cursor{};
        maapi_init_cursor(checks.maapi_socket(), checks.thandle(), &cursor, "%s", kL3List);
        for (maapi_get_next(&cursor); cursor.n != 0; maapi_get_next(&cursor)) {
            ++steps;
        }
        maapi_destroy_cursor(&cursor);
    }
    state.counters["step"] = benchmark::Counter(
        static_cast<double>(steps), benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

// Per scale the commit, then each call; scales in turn, so each device is
// loaded once. Every size fires the same calls.
void RegisterAll() {
    const ipapp_bench::CommitChecks& calls = ChecksOfScale(kScales[0]);
    benchmark::RegisterBenchmark("MaapiElementRead/1x", MaapiElementRead)
        ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("CursorStep/1x", CursorStep)->Unit(benchmark::kMicrosecond);
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
