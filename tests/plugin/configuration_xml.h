// Small candidate configurations for reader tests, written as the XML of
// the project's data model.
#ifndef TESTS_PLUGIN_CONFIGURATION_XML_H
#define TESTS_PLUGIN_CONFIGURATION_XML_H

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace plugin_test {

// An interface list entry; body holds its leaves and containers.
std::string L3(const std::string& name, const std::string& body = "");
std::string Loopback(const std::string& name, const std::string& body = "");
std::string Mgmt(const std::string& name, const std::string& body = "");
// The configuration root around interface entries.
std::string Interfaces(const std::string& entries);

// Address leaves of an interface: "<ipv4><address>...", "<ipv6>...".
std::string L3IPv4(const std::string& primary, const std::vector<std::string>& secondaries = {});
std::string LoopbackIPv4(const std::vector<std::string>& addrs);
std::string MgmtIPv4(const std::string& addr);
std::string IPv6(const std::vector<std::string>& addrs);
std::string Vrf(const std::string& name);
std::string Vlan(int32_t vlan);

// Addresses as the route table's colon-separated hex octets.
std::string Hex4(const std::string& ipv4);
std::string Hex6(const std::string& ipv6);

struct RouteRow {
    std::string type;  // the address type's name: "ipv4", "ipv6", "ipv4z", ...
    std::string dest;  // hex octets
    int32_t prefix_len;
    std::string next_hop;  // hex octets
    uint32_t fte_index = 1;
    uint32_t vrf_id = 0;
    std::string interface_name = "";  // the global route's name; "" for none
};

// An IPv4 or IPv6 row from address texts.
RouteRow IPv4Route(const std::string& dest, int32_t prefix_len, const std::string& next_hop,
                   const std::string& interface_name = "", uint32_t vrf_id = 0);
RouteRow IPv6Route(const std::string& dest, int32_t prefix_len, const std::string& next_hop,
                   const std::string& interface_name = "", uint32_t vrf_id = 0);

// The static route table with the rows, and the global routes' output
// interfaces of the rows that name one.
std::string Routes(const std::vector<RouteRow>& rows);
// count IPv4 and IPv6 rows with distinct destinations and next hops.
std::string ManyRoutes(unsigned ipv4_count, unsigned ipv6_count);

// The internal tables around entries of ospf-interface-l3,
// ospf-index-to-proc-id and the VRF table.
std::string Internal(const std::string& entries);
std::string OspfInterface(const std::string& compound, const std::string& area,
                          const std::string& intf, const std::string& addr, int netmask);
std::string OspfProcess(uint32_t compound, uint32_t process_id, const std::string& vrf);
// The VRF table: (index, name) pairs.
std::string VrfConfig(const std::vector<std::pair<uint32_t, std::string>>& names);

}  // namespace plugin_test

#endif  // TESTS_PLUGIN_CONFIGURATION_XML_H
