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
// WriteDevice of ScaledDevice(1) with loopbacks loopbacks instead of 8.
const GeneratedDevice& DeviceWithLoopbacks(size_t loopbacks);
// WriteDevice of l3 interfaces and nothing else.
const GeneratedDevice& DeviceOfL3(size_t l3);

}  // namespace ipapp_bench

#endif
