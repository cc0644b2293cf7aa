#include "configuration_xml.h"

#include <arpa/inet.h>

#include <cstdio>
#include <stdexcept>

namespace plugin_test {

namespace {

std::string Entry(const char* list, const std::string& name, const std::string& body) {
    return std::string("<") + list + " xmlns=\"urn:ipapp:yang:ipapp\">" + Element("name", name) +
           body + "</" + list + ">";
}

std::string AddressList(const std::string& list, const std::vector<std::string>& addrs) {
    std::string entries;
    for (const std::string& addr : addrs) {
        entries += Element(list, Element("ip", addr));
    }
    return entries;
}

// An address as the route table writes it: colon-separated hex octets.
std::string Hex(const std::string& address) {
    unsigned char bytes[sizeof(in6_addr)];
    const bool ipv6 = address.find(':') != std::string::npos;
    if (inet_pton(ipv6 ? AF_INET6 : AF_INET, address.c_str(), bytes) != 1) {
        throw std::invalid_argument("not an address: " + address);
    }
    std::string hex;
    for (size_t i = 0; i < (ipv6 ? sizeof(in6_addr) : sizeof(in_addr)); ++i) {
        char octet[4];
        std::snprintf(octet, sizeof octet, i == 0 ? "%02x" : ":%02x", bytes[i]);
        hex += octet;
    }
    return hex;
}

}  // namespace

std::string Element(const std::string& name, const std::string& content) {
    return "<" + name + ">" + content + "</" + name + ">";
}

std::string Interfaces(const std::string& entries) {
    return "<config xmlns=\"urn:ipapp:yang:device-config\">" + Element("interface", entries) +
           "</config>";
}
std::string L3(const std::string& name, const std::string& body) {
    return Entry("l3", name, body);
}
std::string Mgmt(const std::string& name, const std::string& body) {
    return Entry("mgmt", name, body);
}

std::string IPv4(const std::string& primary, const std::vector<std::string>& secondaries) {
    return Element(
        "ipv4", Element("address", Element("ip", primary) + AddressList("secondary", secondaries)));
}
std::string IPv6(const std::vector<std::string>& addrs) {
    return Element("ipv6", AddressList("address", addrs));
}
std::string Vrf(const std::string& name) {
    return Element("vrf", name);
}
std::string Vlan(int32_t vlan) {
    return Element("lower-layer-if", Element("vlan", std::to_string(vlan)));
}

std::string Routes(const std::vector<RouteRow>& rows) {
    std::string table;
    std::string output_interfaces;
    for (const RouteRow& row : rows) {
        const std::string keys =
            Element("rtmStaticRtDestAddr", Hex(row.dest)) +
            Element("rtmStaticRtDestPrefixLen", std::to_string(row.prefix_len)) +
            Element("rtmStaticRtFteIndex", "1") + Element("rtmStaticRtNextHop", Hex(row.next_hop));
        table += Element("rtmStaticRtEntry",
                         Element("rtmStaticRtVrfCmpntId", std::to_string(row.vrf_id)) +
                             Element("rtmStaticRtDestAddrType", row.type) + keys);
        if (!row.interface_name.empty()) {
            output_interfaces += "<rtmStaticRtEntry-global xmlns=\"urn:ipapp:yang:DC-RTM-MIB\">" +
                                 Element("index", "1") + Element("destination", Hex(row.dest)) +
                                 Element("prefix-len", std::to_string(row.prefix_len)) +
                                 Element("next-hop", Hex(row.next_hop)) +
                                 Element("interface-name", row.interface_name) +
                                 "</rtmStaticRtEntry-global>";
        }
    }
    return "<DC-RTM-MIB xmlns=\"urn:ipapp:yang:DC-RTM-MIB\">" + Element("rtmStaticRtTable", table) +
           "</DC-RTM-MIB>" + output_interfaces;
}

std::string Internal(const std::string& entries) {
    return "<internal xmlns=\"urn:ipapp:yang:metacli-internal\">" + entries + "</internal>";
}

std::string OspfInterface(const std::string& compound, const std::string& area,
                          const std::string& intf, const std::string& addr, int netmask) {
    return Element("ospf-interface-l3",
                   Element("ospf-pm-compound-id", compound) + Element("ospf-pm-area-id", area) +
                       Element("ospf-pm-if-name", intf) + Element("ospf-pm-ip-addr", addr) +
                       Element("ospf-pm-ip-netmask", std::to_string(netmask)));
}

std::string OspfProcess(uint32_t compound, uint32_t process_id, const std::string& vrf) {
    return Element("ospf-index-to-proc-id",
                   Element("ospf-pm-compound-id", std::to_string(compound)) +
                       Element("proc_id", std::to_string(process_id)) + Element("vrf_name", vrf));
}

std::string Ospfv3Interface(uint32_t process_id, const std::string& area,
                            const std::string& intf_name, std::optional<uint32_t> ifindex) {
    const std::string index =
        ifindex ? Element("ospfv3-pm-if-index", std::to_string(*ifindex)) : "";
    return Element("ospfv3-interface-l3", Element("ospfv3-pm-proc-id", std::to_string(process_id)) +
                                              Element("ospfv3-pm-area-id", area) +
                                              Element("ospfv3-pm-if-name", intf_name) + index);
}

}  // namespace plugin_test
