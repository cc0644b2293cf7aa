// Small configurations of the project's data model as XML, for tests that
// read them through the datastore.
#ifndef TESTS_PLUGIN_CONFIGURATION_XML_H
#define TESTS_PLUGIN_CONFIGURATION_XML_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace plugin_test {

// "<name>content</name>"
std::string Element(const std::string& name, const std::string& content);

// The configuration root around interface entries, and the entries; body
// holds the entry's leaves and containers.
std::string Interfaces(const std::string& entries);
std::string L3(const std::string& name, const std::string& body = "");
std::string Mgmt(const std::string& name, const std::string& body = "");

// The IPv4 address leaves of an l3 or mgmt interface (secondaries: l3 only),
// and the IPv6 addresses of any kind.
std::string IPv4(const std::string& primary, const std::vector<std::string>& secondaries = {});
std::string IPv6(const std::vector<std::string>& addrs);
std::string Vrf(const std::string& name);
std::string Vlan(int32_t vlan);

// A row of the static route table; addresses are written as their text and
// stored as the table writes them, colon-separated hex octets.
struct RouteRow {
    std::string type;  // "ipv4", "ipv6", "ipv4z", ...
    std::string dest;
    int32_t prefix_len;
    std::string next_hop;             // address text
    std::string interface_name = "";  // the global route's output interface; "" for none
    uint32_t vrf_id = 0;
};

// The static route table with the rows, and the output interface rows of
// the rows that name one (forwarding table index 1).
std::string Routes(const std::vector<RouteRow>& rows);

// The internal tables around their entries.
std::string Internal(const std::string& entries);
std::string OspfInterface(const std::string& compound, const std::string& area,
                          const std::string& intf, const std::string& addr, int netmask);
std::string OspfProcess(uint32_t compound, uint32_t process_id, const std::string& vrf);
// Without an index the entry has no ospfv3-pm-if-index leaf.
std::string Ospfv3Interface(uint32_t process_id, const std::string& area,
                            const std::string& intf_name, std::optional<uint32_t> ifindex);

}  // namespace plugin_test

#endif  // TESTS_PLUGIN_CONFIGURATION_XML_H
