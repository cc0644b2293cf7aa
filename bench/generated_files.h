// The generated configurations the benchmarks run on, written once per
// process into a scratch directory of their own that is removed at exit.
#ifndef IPAPP_BENCH_GENERATED_FILES_H
#define IPAPP_BENCH_GENERATED_FILES_H

#include <cstddef>
#include <string>

#include "config_generator.h"

namespace ipapp_bench {

struct GeneratedDevice {
    std::string file;
    size_t nodes = 0;
};

// WriteConfigPair of units units.
const ipapp_generator::GeneratedPair& PairOf(size_t units);
// WriteDevice of ScaledDevice(factor).
const GeneratedDevice& DeviceOfScale(size_t factor);
// The parts of the device at its limits that a growth series raises.
enum class GrowingPart {
    loopbacks,      // count loopbacks instead of 8, each with OSPFv2 on its address
    l3,             // count l3 interfaces instead of 256, with OSPFv2 on both IPv4 addresses
    static_routes,  // count route units instead of 1000: half IPv4 routes, a quarter IPv6
};

// WriteDevice of ScaledDevice(1) with count of part.
const GeneratedDevice& DeviceGrowing(GrowingPart part, size_t count);
// WriteDevice of l3 interfaces and nothing else.
const GeneratedDevice& DeviceOfL3(size_t l3);

}  // namespace ipapp_bench

#endif
