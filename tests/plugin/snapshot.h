// Hand-built configuration snapshots. Records are written in the form
// snapshot_text.h prints them:
//   interface  "name|vrf|ipv4,...|ipv6,...|vlan"  ("l3 5|red|10.0.0.1/24||100")
//   assignment "interface|process|vrf|area|ipv4,..."
// Missing trailing fields are empty, except the VRF of an interface, which
// is then "global"; a VLAN of 0 means no lower layer.
#ifndef TESTS_PLUGIN_SNAPSHOT_H
#define TESTS_PLUGIN_SNAPSHOT_H

#include "ip_app_valid/confd_api.h"

#include <memory>
#include <string>
#include <vector>

#include "ip_app_valid/config.h"

namespace plugin_test {

// Addresses from their text forms, "10.0.0.1/24", "2001:db8::1/64", "10.0.0.1".
nettypes::IPv4AddrMask V4(const std::string& text);
nettypes::IPv6AddrMask V6(const std::string& text);
nettypes::IPv4Addr Addr4(const std::string& text);

ip_application::config_valid::Interface ParseInterface(const std::string& record);
ip_application::config_valid::OspfIf ParseOspfIf(const std::string& record);

// A context whose five readers have read both families of a configuration
// that has nothing (no MAAPI socket is bound, so every read comes back
// empty), with the records merged into the readers their names select
// ("l3 ", "loopback ", "mgmt ") and the OSPFv2 reader.
std::unique_ptr<ip_application::config_valid::Config> SnapshotOf(
    const std::vector<std::string>& interfaces, const std::vector<std::string>& assignments = {});

}  // namespace plugin_test

#endif  // TESTS_PLUGIN_SNAPSHOT_H
