#include "config_generator.h"

#include <stdexcept>
#include <string>
#include <vector>

#include "config_xml.h"

namespace ipapp_generator {
namespace {

// What a commit changes in one unit.
struct UnitEdit {
    const char* min_interval = "200";
    const char* lifetime = "1800";
    const char* first_secondary = "11.%zu.%zu.1/24";
    bool drop_ipv6_route = false;
};

// Unit i's interface is l3 i+1; its addresses derive from i (i < 65536).
std::string Name(size_t i) {
    return std::to_string(i + 1);
}

void Interface(XmlWriter& xml, size_t i, const UnitEdit& edit) {
    const size_t a = i / 256;
    const size_t b = i % 256;
    xml.Open("l3", kIpappNs);
    xml.Leaf("name", Name(i));
    if (i % 4 == 3) {
        xml.Leaf("vrf", VrfName(i % kVrfs + 1));
    }
    xml.Open("ipv4");
    xml.Open("address");
    xml.Leaf("ip", Format("10.%zu.%zu.1/24", a, b));
    for (const char* secondary : {edit.first_secondary, "12.%zu.%zu.1/24", "13.%zu.%zu.1/24"}) {
        xml.Open("secondary");
        xml.Leaf("ip", Format(secondary, a, b));
        xml.Close();
    }
    xml.Close();
    xml.Close();
    xml.Open("ipv6");
    for (const char* address : {"2001:db8:%zx::1/64", "fd00:%zx::1/64"}) {
        xml.Open("address");
        xml.Leaf("ip", Format(address, i));
        xml.Close();
    }
    xml.Open("nd");
    xml.Open("ra");
    xml.Leaf("max-interval", "600");
    xml.Leaf("min-interval", edit.min_interval);
    xml.Leaf("lifetime", edit.lifetime);
    xml.Close();
    xml.Close();
    xml.Close();
    xml.Open("lower-layer-if");
    xml.Leaf("vlan", std::to_string(i % 4094 + 1));
    xml.Close();
    xml.Close();
}

// Every eighth unit's routes are in the global VRF, the others in one of
// the VRFs.
std::vector<Route> RoutesOf(size_t i, const UnitEdit& edit) {
    const size_t a = i / 256;
    const size_t b = i % 256;
    const size_t vrf = i % 8 == 0 ? 0 : i % kVrfs + 1;
    std::vector<Route> routes = {
        {vrf, "ipv4", 3 * i + 1, Format("1e:%02zx:%02zx:00", a, b), 24,
         Format("0a:%02zx:%02zx:fe", a, b)},
        {vrf, "ipv4", 3 * i + 2, Format("1f:%02zx:%02zx:00", a, b), 24,
         Format("0a:%02zx:%02zx:fd", a, b)},
    };
    if (!edit.drop_ipv6_route) {
        routes.push_back({vrf, "ipv6", 3 * i + 3,
                          Format("20:01:0d:b9:%02zx:%02zx:00:00:00:00:00:00:00:00:00:00", a, b), 48,
                          Format("20:01:0d:b8:%02zx:%02zx:00:00:00:00:00:00:00:00:00:fe", a, b)});
    }
    return routes;
}

// OSPFv2 runs on every IPv4 address of the interface, OSPFv3 on the
// interface.
void OspfRows(XmlWriter& xml, size_t i) {
    for (const char* address : {"10.%zu.%zu.1", "11.%zu.%zu.1", "12.%zu.%zu.1", "13.%zu.%zu.1"}) {
        xml.Open("ospf-interface-l3");
        xml.Leaf("ospf-pm-compound-id", "65537");
        xml.Leaf("ospf-pm-area-id", Format("0.0.0.%zu", i % 4));
        xml.Leaf("ospf-pm-if-name", "l3-" + Name(i));
        xml.Leaf("ospf-pm-ip-addr", Format(address, i / 256, i % 256));
        xml.Leaf("ospf-pm-ip-netmask", "24");
        xml.Close();
    }
    xml.Open("ospfv3-interface-l3");
    xml.Leaf("ospfv3-pm-proc-id", "1");
    xml.Leaf("ospfv3-pm-area-id", "0.0.0.0");
    xml.Leaf("ospfv3-pm-if-name", "l3-" + Name(i));
    xml.Leaf("ospfv3-pm-if-index", std::to_string(1000000 + i % 4094 + 1));
    xml.Close();
}

void FixedInterfaces(XmlWriter& xml) {
    for (size_t n = 0; n < 2; ++n) {
        xml.Open("loopback", kIpappNs);
        xml.Leaf("name", std::to_string(n));
        xml.Open("ipv4");
        xml.Open("address");
        xml.Leaf("ip", Format("192.0.2.%zu/32", n + 1));
        xml.Close();
        xml.Close();
        xml.Close();
    }
    xml.Open("mgmt", kIpappNs);
    xml.Leaf("name", "0");
    xml.Open("ipv4");
    xml.Open("address");
    xml.Leaf("ip", "198.51.100.10/24");
    xml.Close();
    xml.Close();
    xml.Close();
}

// The whole configuration of units interfaces, with edits[i] applied to unit i.
size_t Configuration(std::string& out, size_t units, const std::vector<UnitEdit>& edits) {
    XmlWriter xml(out);
    xml.Open("config", kDeviceNs);
    xml.Open("interface");
    for (size_t i = 0; i < units; ++i) {
        Interface(xml, i, edits[i]);
    }
    FixedInterfaces(xml);
    xml.Close();
    xml.Close();
    xml.Open("DC-RTM-MIB", kRtmNs);
    xml.Open("rtmStaticRtTable");
    for (size_t i = 0; i < units; ++i) {
        for (const Route& route : RoutesOf(i, edits[i])) {
            RouteEntry(xml, route);
        }
    }
    xml.Close();
    xml.Close();
    for (size_t i = 0; i < units; ++i) {
        for (const Route& route : RoutesOf(i, edits[i])) {
            if (route.vrf == 0) {
                OutputInterfaceRow(xml, route, "l3-" + Name(i));
            }
        }
    }
    xml.Open("internal", kInternalNs);
    for (size_t i = 0; i < units; ++i) {
        OspfRows(xml, i);
    }
    xml.Open("ospf-index-to-proc-id");
    xml.Leaf("ospf-pm-compound-id", "65537");
    xml.Leaf("proc_id", "1");
    xml.Leaf("vrf_name", "global");
    xml.Close();
    VrfNames(xml);
    xml.Close();
    return xml.nodes();
}

}  // namespace

GeneratedPair WriteConfigPair(const std::string& directory, size_t units) {
    if (units < 4) {
        throw std::runtime_error("at least 4 units");
    }
    GeneratedPair pair;
    pair.running_file = directory + "/running.xml";
    pair.candidate_file = directory + "/candidate.xml";

    std::vector<UnitEdit> running(units + 1);
    std::string text;
    pair.running_nodes = Configuration(text, units, running);
    WriteFile(pair.running_file, text);

    std::vector<UnitEdit> candidate(running);
    candidate[0].min_interval = "450";
    candidate[units / 2].lifetime = "600";
    candidate[units / 3].first_secondary = "14.%zu.%zu.1/24";
    candidate[units - 1].drop_ipv6_route = true;
    text.clear();
    pair.candidate_nodes = Configuration(text, units + 1, candidate);
    WriteFile(pair.candidate_file, text);
    return pair;
}

}  // namespace ipapp_generator
