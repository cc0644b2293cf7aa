// Hand-built configuration snapshots: a library context whose readers have
// read an empty configuration (their read-once flags are set), into which a
// test merges the records it needs through the readers' merge functions.
#ifndef TESTS_PLUGIN_SNAPSHOT_H
#define TESTS_PLUGIN_SNAPSHOT_H

#include "ip_app_valid/confd_api.h"

#include <cstdint>
#include <list>
#include <memory>
#include <string>

#include "ip_app_valid/config.h"

namespace plugin_test {

// Addresses from their text forms, "10.0.0.1/24", "2001:db8::1/64", "10.0.0.1".
nettypes::IPv4AddrMask V4(const std::string& text);
nettypes::IPv6AddrMask V6(const std::string& text);
nettypes::IPv4Addr Addr4(const std::string& text);

struct InterfaceSpec {
    std::string name;
    std::string vrf = "global";
    std::list<std::string> ipv4 = {};
    std::list<std::string> ipv6 = {};
    int32_t vlan = 0;  // 0: no lower layer
};

ip_application::config_valid::Interface MakeInterface(const InterfaceSpec& spec);

// A context whose five readers have read both families of a configuration
// that has nothing: no MAAPI socket is bound, so every read comes back empty.
std::unique_ptr<ip_application::config_valid::Config> EmptySnapshot();

// The address record of one OSPFv2 assignment.
ip_application::config_valid::OspfIf MakeOspfIf(const std::string& intf_name, uint32_t process_id,
                                                const std::string& vrf, const std::string& area,
                                                const std::string& addr);

}  // namespace plugin_test

#endif  // TESTS_PLUGIN_SNAPSHOT_H
