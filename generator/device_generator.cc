#include "device_generator.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "config_xml.h"

namespace ipapp_generator {
namespace {

// The VRF number of l3 interface i; 0 is the global VRF.
size_t VrfOf(size_t i) {
    return i % 4 == 3 ? i % kVrfs + 1 : 0;
}

std::string VrfNameOf(size_t vrf) {
    return vrf == 0 ? "global" : VrfName(vrf);
}

std::string L3Name(size_t i) {
    return std::to_string(i + 1);
}

// The primary or secondary IPv4 address of l3 interface i, without prefix.
std::string L3Ipv4(size_t i, bool secondary) {
    const size_t high = i / 65536;
    const size_t first = (high == 0 ? 10 : 28 + 2 * high) + (secondary ? 1 : 0);
    return std::to_string(first) + Format(".%zu.%zu.1", i / 256 % 256, i % 256);
}

std::string L3Ipv6(size_t i) {
    return i < 65536 ? Format("2001:db8:%zx::1/64", i)
                     : Format("2001:dba:%zx:%zx::1/64", i / 65536, i % 65536);
}

void L3Interface(XmlWriter& xml, size_t i) {
    xml.Open("l3", kIpappNs);
    xml.Leaf("name", L3Name(i));
    if (VrfOf(i) != 0) {
        xml.Leaf("vrf", VrfName(VrfOf(i)));
    }
    xml.Open("ipv4");
    xml.Open("address");
    xml.Leaf("ip", L3Ipv4(i, false) + "/24");
    Nested(xml, {"secondary"}, "ip", L3Ipv4(i, true) + "/24");
    xml.Close();
    xml.Close();
    Nested(xml, {"ipv6", "address"}, "ip", L3Ipv6(i));
    xml.Open("lower-layer-if");
    xml.Leaf("vlan", std::to_string(i % 4094 + 1));
    xml.Close();
    xml.Close();
}

void Loopback(XmlWriter& xml, size_t i) {
    xml.Open("loopback", kIpappNs);
    xml.Leaf("name", std::to_string(i));
    Nested(xml, {"ipv4", "address"}, "ip", Format("172.16.%zu.%zu/32", i / 256, i % 256));
    Nested(xml, {"ipv6", "address"}, "ip", Format("2001:db8:ffff::%zx/128", i));
    xml.Close();
}

void Mgmt(XmlWriter& xml) {
    xml.Open("mgmt", kIpappNs);
    xml.Leaf("name", "0");
    xml.Leaf("vrf", "mgmt");
    Nested(xml, {"ipv4", "address"}, "ip", "198.51.100.10/24");
    Nested(xml, {"ipv6", "address"}, "ip", "2001:db8:fffe::10/64");
    xml.Close();
}

void Interfaces(XmlWriter& xml, const DeviceShape& shape) {
    if (shape.l3 == 0 && shape.loopbacks == 0 && !shape.mgmt) {
        return;
    }
    xml.Open("config", kDeviceNs);
    xml.Open("interface");
    for (size_t i = 0; i < shape.l3; ++i) {
        L3Interface(xml, i);
    }
    for (size_t i = 0; i < shape.loopbacks; ++i) {
        Loopback(xml, i);
    }
    if (shape.mgmt) {
        Mgmt(xml);
    }
    xml.Close();
    xml.Close();
}

// A route with the l3 interface it leaves through, if there is one.
struct PlannedRoute {
    Route route;
    std::optional<size_t> interface;
};

std::vector<PlannedRoute> Routes(const DeviceShape& shape) {
    std::vector<PlannedRoute> routes;
    for (size_t r = 0; r < shape.ipv4_routes + shape.ipv6_routes; ++r) {
        const bool ipv6 = r >= shape.ipv4_routes;
        const size_t n = ipv6 ? r - shape.ipv4_routes : r;
        const size_t k = shape.l3 == 0 ? 0 : n % shape.l3;
        const std::string destination =
            ipv6 ? Format("20:01:0d:b9:%02zx:%02zx:00:00:00:00:00:00:00:00:00:00", n / 256, n % 256)
                 : Format("14:%02zx:%02zx:00", n / 256, n % 256);
        const std::string next_hop =
            ipv6 ? Format("20:01:0d:b8:%02zx:%02zx:00:00:00:00:00:00:00:00:00:fe", k / 256, k % 256)
                 : Format("0a:%02zx:%02zx:fe", k / 256, k % 256);
        const Route route{VrfOf(k),    ipv6 ? "ipv6" : "ipv4", r + 1,
                          destination, ipv6 ? 48 : 24,         next_hop};
        routes.push_back({route, shape.l3 == 0 ? std::nullopt : std::optional<size_t>(k)});
    }
    return routes;
}

void StaticRoutes(XmlWriter& xml, const std::vector<PlannedRoute>& routes) {
    if (routes.empty()) {
        return;
    }
    xml.Open("DC-RTM-MIB", kRtmNs);
    xml.Open("rtmStaticRtTable");
    for (const PlannedRoute& planned : routes) {
        RouteEntry(xml, planned.route);
    }
    xml.Close();
    xml.Close();
    for (const PlannedRoute& planned : routes) {
        if (planned.route.vrf == 0 && planned.interface) {
            OutputInterfaceRow(xml, planned.route, "l3-" + L3Name(*planned.interface));
        }
    }
}

// The OSPFv2 process of VRF number vrf.
size_t CompoundId(size_t vrf) {
    return 65537 + vrf;
}

void OspfRow(XmlWriter& xml, size_t vrf, size_t area, const std::string& interface,
             const std::string& address, unsigned prefix) {
    xml.Open("ospf-interface-l3");
    xml.Leaf("ospf-pm-compound-id", std::to_string(CompoundId(vrf)));
    xml.Leaf("ospf-pm-area-id", Format("0.0.0.%zu", area));
    xml.Leaf("ospf-pm-if-name", interface);
    xml.Leaf("ospf-pm-ip-addr", address);
    xml.Leaf("ospf-pm-ip-netmask", std::to_string(prefix));
    xml.Close();
}

void Ospfv2(XmlWriter& xml, const DeviceShape& shape) {
    for (size_t i = 0; i < shape.l3; ++i) {
        for (const bool secondary : {false, true}) {
            OspfRow(xml, VrfOf(i), i % 4, "l3-" + L3Name(i), L3Ipv4(i, secondary), 24);
        }
    }
    for (size_t i = 0; i < shape.loopbacks; ++i) {
        OspfRow(xml, 0, 0, "loopback-" + std::to_string(i),
                Format("172.16.%zu.%zu", i / 256, i % 256), 32);
    }
    for (size_t vrf = 0; vrf <= kVrfs; ++vrf) {
        xml.Open("ospf-index-to-proc-id");
        xml.Leaf("ospf-pm-compound-id", std::to_string(CompoundId(vrf)));
        xml.Leaf("proc_id", std::to_string(vrf + 1));
        xml.Leaf("vrf_name", VrfNameOf(vrf));
        xml.Close();
    }
}

void Internal(XmlWriter& xml, const DeviceShape& shape) {
    if (shape.l3 == 0 && !shape.ospfv2) {
        return;
    }
    xml.Open("internal", kInternalNs);
    if (shape.ospfv2) {
        Ospfv2(xml, shape);
    }
    VrfNames(xml);
    xml.Close();
}

}  // namespace

DeviceShape ScaledDevice(size_t factor) {
    DeviceShape shape;
    shape.l3 = 256 * factor;
    shape.loopbacks = 8 * factor;
    shape.mgmt = true;
    shape.ipv4_routes = 500 * factor;
    shape.ipv6_routes = 250 * factor;
    shape.ospfv2 = true;
    return shape;
}

size_t WriteDevice(const std::string& path, const DeviceShape& shape) {
    if (shape.l3 > kMostL3) {
        throw std::runtime_error("at most " + std::to_string(kMostL3) + " l3 interfaces");
    }
    for (size_t count : {shape.loopbacks, shape.ipv4_routes, shape.ipv6_routes}) {
        if (count > kMostOfAKind) {
            throw std::runtime_error("at most " + std::to_string(kMostOfAKind) +
                                     " interfaces or routes of one kind");
        }
    }
    std::string text;
    XmlWriter xml(text);
    Interfaces(xml, shape);
    StaticRoutes(xml, Routes(shape));
    Internal(xml, shape);
    WriteFile(path, text);
    return xml.nodes();
}

}  // namespace ipapp_generator
