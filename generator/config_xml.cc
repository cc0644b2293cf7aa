#include "config_xml.h"

#include <arpa/inet.h>

#include <cstdio>
#include <fstream>
#include <stdexcept>

namespace ipapp_generator {

namespace {

std::string Entry(const char* list, const std::string& name, const std::string& body) {
    return std::string("<") + list + " xmlns=\"" + kIpappNs + "\">" + Element("name", name) + body +
           "</" + list + ">";
}

std::string AddressList(const std::string& list, const std::vector<std::string>& addrs) {
    std::string entries;
    for (const std::string& addr : addrs) {
        entries += Element(list, Element("ip", addr));
    }
    return entries;
}

}  // namespace

std::string Element(const std::string& name, const std::string& content) {
    return '<' + name + '>' + content + "</" + name + '>';
}

void XmlWriter::Open(const std::string& name, const char* ns) {
    out_ += '<' + name;
    if (ns != nullptr) {
        out_ += std::string(" xmlns=\"") + ns + '"';
    }
    out_ += '>';
    open_.push_back(name);
    ++nodes_;
}

void XmlWriter::Close() {
    out_ += "</" + open_.back() + ">\n";
    open_.pop_back();
}

void XmlWriter::Leaf(const std::string& name, const std::string& value) {
    out_ += Element(name, value) + '\n';
    ++nodes_;
}

void Nested(XmlWriter& xml, std::initializer_list<const char*> containers, const std::string& leaf,
            const std::string& value) {
    for (const char* container : containers) {
        xml.Open(container);
    }
    xml.Leaf(leaf, value);
    for (size_t n = 0; n < containers.size(); ++n) {
        xml.Close();
    }
}

std::string VrfName(size_t number) {
    return "vrf" + std::to_string(number);
}

void VrfNames(XmlWriter& xml) {
    xml.Open("vrf-config");
    for (size_t n = 1; n <= kVrfs; ++n) {
        xml.Open("indexTOstring");
        xml.Leaf("n", std::to_string(n));
        xml.Leaf("vname", VrfName(n));
        xml.Close();
    }
    xml.Close();
}

std::string Format(const char* format, size_t a, size_t b, size_t c) {
    char text[128];
    std::snprintf(text, sizeof text, format, a, b, c);
    return text;
}

void RouteEntry(XmlWriter& xml, const Route& route) {
    xml.Open("rtmStaticRtEntry");
    xml.Leaf("rtmStaticRtVrfCmpntId", std::to_string(route.vrf));
    xml.Leaf("rtmStaticRtDestAddrType", route.type);
    xml.Leaf("rtmStaticRtDestAddr", route.destination);
    xml.Leaf("rtmStaticRtDestPrefixLen", std::to_string(route.prefix));
    xml.Leaf("rtmStaticRtFteIndex", std::to_string(route.fte));
    xml.Leaf("rtmStaticRtNextHop", route.next_hop);
    xml.Leaf("rtmStaticRtPreference", "1");
    xml.Close();
}

void OutputInterfaceRow(XmlWriter& xml, const Route& route, const std::string& interface) {
    xml.Open("rtmStaticRtEntry-global", kRtmNs);
    xml.Leaf("index", std::to_string(route.fte));
    xml.Leaf("destination", route.destination);
    xml.Leaf("prefix-len", std::to_string(route.prefix));
    xml.Leaf("next-hop", route.next_hop);
    xml.Leaf("interface-name", interface);
    xml.Close();
}

void WriteFile(const std::string& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary);
    file << text;
    if (!file.flush()) {
        throw std::runtime_error(path + ": cannot write");
    }
}

std::string HexAddress(const std::string& address) {
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

std::string Interfaces(const std::string& entries) {
    return std::string("<config xmlns=\"") + kDeviceNs + "\">" + Element("interface", entries) +
           "</config>";
}
std::string L3(const std::string& name, const std::string& body) {
    return Entry("l3", name, body);
}
std::string Mgmt(const std::string& name, const std::string& body) {
    return Entry("mgmt", name, body);
}

std::string IPv4(const std::string& primary, const std::vector<std::string>& secondaries) {
    const std::string ip = primary.empty() ? "" : Element("ip", primary);
    return Element("ipv4", Element("address", ip + AddressList("secondary", secondaries)));
}
std::string IPv6(const std::vector<std::string>& addrs, const std::string& ra_leaves) {
    const std::string nd = ra_leaves.empty() ? "" : Element("nd", Element("ra", ra_leaves));
    return Element("ipv6", AddressList("address", addrs) + nd);
}
std::string Vrf(const std::string& name) {
    return Element("vrf", name);
}
std::string Vlan(int32_t vlan) {
    return Element("lower-layer-if", Element("vlan", std::to_string(vlan)));
}

std::string Routes(const std::vector<RouteRow>& rows) {
    std::vector<Route> routes;
    for (const RouteRow& row : rows) {
        routes.push_back(Route{row.vrf_id, row.type, 1, HexAddress(row.dest), row.prefix_len,
                               HexAddress(row.next_hop)});
    }
    std::string text;
    XmlWriter xml(text);
    xml.Open("DC-RTM-MIB", kRtmNs);
    xml.Open("rtmStaticRtTable");
    for (const Route& route : routes) {
        RouteEntry(xml, route);
    }
    xml.Close();
    xml.Close();
    for (size_t i = 0; i < rows.size(); ++i) {
        if (!rows[i].interface_name.empty()) {
            OutputInterfaceRow(xml, routes[i], rows[i].interface_name);
        }
    }
    return text;
}

std::string Internal(const std::string& entries) {
    return std::string("<internal xmlns=\"") + kInternalNs + "\">" + entries + "</internal>";
}

std::string VrfConfig(size_t number, const std::string& name) {
    return Element("vrf-config", Element("indexTOstring", Element("n", std::to_string(number)) +
                                                              Element("vname", name)));
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

}  // namespace ipapp_generator
