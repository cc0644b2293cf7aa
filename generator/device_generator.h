// One device's configuration of a given shape, in one file, with no conflict
// between its parts: every check of the plug-in walks all of it, and only
// the device's limits (256 l3 interfaces, 1000 route units) can refuse it.
//
// Address plan (i counts from 0, a = i / 256 % 256, b = i % 256):
// - l3 interface i is "l3 i+1": 10.a.b.1/24, secondary 11.a.b.1/24,
//   2001:db8:i::1/64 (i in hex), VLAN i % 4094 + 1; every fourth (i % 4 == 3)
//   is in VRF "vrf<i % 16 + 1>", the others in the global VRF. Past the
//   first 65536 (h = i / 65536 from 1 to 15) the IPv4 addresses are
//   (28 + 2h).a.b.1/24 and (29 + 2h).a.b.1/24, the IPv6 address
//   2001:dba:h:(i % 65536)::1/64 (in hex).
// - loopback i: 172.16.a.b/32 and 2001:db8:ffff::i/128, global VRF.
// - mgmt 0: VRF "mgmt", 198.51.100.10/24 and 2001:db8:fffe::10/64.
// - IPv4 route r: 20.a.b.0/24 (a, b of r) in the VRF of interface
//   k = r % l3, via that interface's gateway 10.a.b.254 (a, b of k); IPv6
//   route r: 2001:db9:r::/48 via 2001:db8:k::fe. Without l3 interfaces every
//   route is global and goes via 10.0.0.254 or 2001:db8::fe. Global routes
//   name their interface as output interface.
// - OSPFv2: process 1 of the global VRF and process n+1 of VRF "vrf<n>" run
//   on every IPv4 address of the l3 interfaces and loopbacks.
#ifndef IPAPP_GENERATOR_DEVICE_GENERATOR_H
#define IPAPP_GENERATOR_DEVICE_GENERATOR_H

#include <cstddef>
#include <string>

namespace ipapp_generator {

struct DeviceShape {
    size_t l3 = 0;
    size_t loopbacks = 0;
    bool mgmt = false;
    size_t ipv4_routes = 0;
    size_t ipv6_routes = 0;
    bool ospfv2 = false;
};

// factor times a device at its limits: 256 l3 interfaces, 8 loopbacks, the
// management interface, 500 IPv4 and 250 IPv6 routes (1000 route units),
// OSPFv2 on every interface.
DeviceShape ScaledDevice(size_t factor);

// What the address plan holds: l3 interfaces, and of each other kind.
constexpr size_t kMostL3 = 16 * 65536;
constexpr size_t kMostOfAKind = 65536;

// Writes the configuration to path and returns its number of data nodes.
// Throws std::runtime_error when the shape has more interfaces or routes than
// the address plan holds or the file cannot be written.
size_t WriteDevice(const std::string& path, const DeviceShape& shape);

}  // namespace ipapp_generator

#endif
