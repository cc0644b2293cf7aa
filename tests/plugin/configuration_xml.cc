#include "configuration_xml.h"

#include <arpa/inet.h>

#include <cstdio>
#include <stdexcept>

namespace plugin_test {

namespace {

constexpr const char* kIpappNs = "urn:ipapp:yang:ipapp";

std::string Element(const std::string& name, const std::string& content) {
    return "<" + name + ">" + content + "</" + name + ">";
}

std::string Entry(const char* list, const std::string& name, const std::string& body) {
    return std::string("<") + list + " xmlns=\"" + kIpappNs + "\">" + Element("name", name) + body +
           "</" + list + ">";
}

std::string HexOctets(const unsigned char* bytes, size_t count) {
    std::string hex;
    for (size_t i = 0; i < count; ++i) {
        char octet[4];
        std::snprintf(octet, sizeof octet, i == 0 ? "%02x" : ":%02x", bytes[i]);
        hex += octet;
    }
    return hex;
}

template <typename Raw>
std::string HexOf(int family, const std::string& text) {
    Raw raw;
    if (inet_pton(family, text.c_str(), &raw) != 1) {
        throw std::invalid_argument("not an address: " + text);
    }
    return HexOctets(reinterpret_cast<const unsigned char*>(&raw), sizeof raw);
}

std::string AddressList(const std::string& list, const std::vector<std::string>& addrs) {
    std::string entries;
    for (const std::string& addr : addrs) {
        entries += Element(list, Element("ip", addr));
    }
    return entries;
}

RouteRow Row(const char* type, std::string dest, int32_t prefix_len, std::string next_hop,
             const std::string& interface_name, uint32_t vrf_id) {
    RouteRow row{type, std::move(dest), prefix_len, std::move(next_hop)};
    row.interface_name = interface_name;
    row.vrf_id = vrf_id;
    return row;
}

}  // namespace

std::string L3(const std::string& name, const std::string& body) {
    return Entry("l3", name, body);
}
std::string Loopback(const std::string& name, const std::string& body) {
    return Entry("loopback", name, body);
}
std::string Mgmt(const std::string& name, const std::string& body) {
    return Entry("mgmt", name, body);
}
std::string Interfaces(const std::string& entries) {
    return "<config xmlns=\"urn:ipapp:yang:device-config\">" + Element("interface", entries) +
           "</config>";
}

std::string L3IPv4(const std::string& primary, const std::vector<std::string>& secondaries) {
    const std::string ip = primary.empty() ? "" : Element("ip", primary);
    return Element("ipv4", Element("address", ip + AddressList("secondary", secondaries)));
}
std::string LoopbackIPv4(const std::vector<std::string>& addrs) {
    return Element("ipv4", AddressList("address", addrs));
}
std::string MgmtIPv4(const std::string& addr) {
    return Element("ipv4", Element("address", Element("ip", addr)));
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

std::string Hex4(const std::string& ipv4) {
    return HexOf<in_addr>(AF_INET, ipv4);
}
std::string Hex6(const std::string& ipv6) {
    return HexOf<in6_addr>(AF_INET6, ipv6);
}

RouteRow IPv4Route(const std::string& dest, int32_t prefix_len, const std::string& next_hop,
                   const std::string& interface_name, uint32_t vrf_id) {
    return Row("ipv4", Hex4(dest), prefix_len, Hex4(next_hop), interface_name, vrf_id);
}
RouteRow IPv6Route(const std::string& dest, int32_t prefix_len, const std::string& next_hop,
                   const std::string& interface_name, uint32_t vrf_id) {
    return Row("ipv6", Hex6(dest), prefix_len, Hex6(next_hop), interface_name, vrf_id);
}

std::string Routes(const std::vector<RouteRow>& rows) {
    std::string table;
    std::string global;
    for (const RouteRow& row : rows) {
        table += Element("rtmStaticRtEntry",
                         Element("rtmStaticRtVrfCmpntId", std::to_string(row.vrf_id)) +
                             Element("rtmStaticRtDestAddrType", row.type) +
                             Element("rtmStaticRtDestAddr", row.dest) +
                             Element("rtmStaticRtDestPrefixLen", std::to_string(row.prefix_len)) +
                             Element("rtmStaticRtFteIndex", std::to_string(row.fte_index)) +
                             Element("rtmStaticRtNextHop", row.next_hop));
        if (!row.interface_name.empty()) {
            global += "<rtmStaticRtEntry-global xmlns=\"urn:ipapp:yang:DC-RTM-MIB\">" +
                      Element("index", std::to_string(row.fte_index)) +
                      Element("destination", row.dest) +
                      Element("prefix-len", std::to_string(row.prefix_len)) +
                      Element("next-hop", row.next_hop) +
                      Element("interface-name", row.interface_name) + "</rtmStaticRtEntry-global>";
        }
    }
    return "<DC-RTM-MIB xmlns=\"urn:ipapp:yang:DC-RTM-MIB\">" + Element("rtmStaticRtTable", table) +
           "</DC-RTM-MIB>" + global;
}

std::string ManyRoutes(unsigned ipv4_count, unsigned ipv6_count) {
    std::vector<RouteRow> rows;
    for (unsigned i = 0; i < ipv4_count; ++i) {
        const std::string net = "10." + std::to_string(i / 256) + "." + std::to_string(i % 256);
        rows.push_back(IPv4Route(net + ".0", 24, net + ".1"));
    }
    for (unsigned i = 0; i < ipv6_count; ++i) {
        const std::string net = "2001:db8:" + std::to_string(i) + "::";
        rows.push_back(IPv6Route(net, 64, net + "1"));
    }
    return Routes(rows);
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

std::string VrfConfig(const std::vector<std::pair<uint32_t, std::string>>& names) {
    std::string entries;
    for (const auto& [index, name] : names) {
        entries +=
            Element("indexTOstring", Element("n", std::to_string(index)) + Element("vname", name));
    }
    return Element("vrf-config", entries);
}

}  // namespace plugin_test
