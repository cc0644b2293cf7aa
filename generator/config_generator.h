// Device-sized running and candidate configurations for the benchmarks.
//
// The running configuration repeats one unit per layer-3 interface: the
// interface (VLAN, VRF for some, a primary and three secondary IPv4
// addresses, two IPv6 addresses, router advertisement timers), two IPv4 and
// one IPv6 static route through it (in the global VRF for every eighth unit,
// with their output-interface rows, else in a VRF), an OSPFv2 row per IPv4
// address and an OSPFv3 row; around them loopbacks, the management interface
// and the VRF names. A unit is about 78 data nodes, so 6400 units make 500k
// nodes. Such a configuration has more interfaces and routes than the device
// allows; the benchmarks are about the data's size, not about a verdict.
//
// The candidate is the running configuration after a typical commit: timers
// of two interfaces, one secondary address, one new interface, one route
// fewer.
#ifndef IPAPP_GENERATOR_CONFIG_GENERATOR_H
#define IPAPP_GENERATOR_CONFIG_GENERATOR_H

#include <cstddef>
#include <string>

namespace ipapp_generator {

struct GeneratedPair {
    std::string running_file;
    std::string candidate_file;
    size_t running_nodes = 0;
    size_t candidate_nodes = 0;
};

// Writes running.xml and candidate.xml into directory; throws
// std::runtime_error when a file cannot be written.
GeneratedPair WriteConfigPair(const std::string& directory, size_t units);

}  // namespace ipapp_generator

#endif
