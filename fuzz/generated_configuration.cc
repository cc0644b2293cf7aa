#include "generated_configuration.h"

#include "config_xml.h"

#include <map>
#include <set>
#include <vector>

namespace ipapp_fuzz {
namespace {

using ipapp_generator::Element;
using ipapp_generator::Interfaces;
using ipapp_generator::Internal;
using ipapp_generator::kIpappNs;
using ipapp_generator::kRtmNs;
using Pool = std::vector<const char*>;

// Names and values of each kind; small, so that the data picks the same one
// twice often.
const Pool kL3Names = {
    "1",     "2",   "5", "10",
    "eth_1", "a.b", "",  "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx"};
const Pool kOtherNames = {"0", "1", "2"};
const Pool kVrfs = {"blue", "red", "global", ""};
const Pool kIpv4 = {"10.0.0.1/24",  "10.0.0.2/24",  "10.0.0.0/24",   "10.0.0.255/24", "10.0.1.1/16",
                    "192.0.2.1/32", "192.0.2.1/31", "172.16.0.1/30", "0.0.0.0/0"};
const Pool kIpv6 = {"2001:db8::1/64", "2001:db8::2/64", "2001:db8::/64",   "2001:db8::1/128",
                    "fe80::1/10",     "::/0",           "2001:db8:1::1/48"};
const Pool kTimers = {"0", "3", "4", "5", "200", "450", "451", "600", "1800", "65535"};
const Pool kVlans = {"1", "5", "10", "100", "4094", "0", "-1", "5000"};
const Pool kVrfIds = {"0", "1", "2", "3"};
const Pool kAddressTypes = {"ipv4", "ipv6", "unknown", "dns"};
const Pool kOctets = {"0a:00:00:00",
                      "0a:00:00:01",
                      "0a:00:00:02",
                      "c0:00:02:01",
                      "00:00:00:00",
                      "0a:00",
                      "",
                      "0a:00:00:01:ff",
                      "20:01:0d:b8:00:00:00:00:00:00:00:00:00:00:00:01",
                      "20:01:0d:b8:00:00:00:00:00:00:00:00:00:00:00:02",
                      "00:00:00:00:00:00:00:00:00:00:00:00:00:00:00:00"};
const Pool kPrefixLengths = {"0", "16", "24", "32", "64", "128", "-1"};
const Pool kFteIndexes = {"1", "2", "3"};
const Pool kOutputInterfaces = {"l3-1",   "l3-2", "l3-10", "l3-eth_1", "loopback-0",
                                "mgmt-0", "l3",   "x",     "",         "l3-"};
const Pool kCompoundIdTexts = {
    "65537", "131073", "1", "0", "abc", "", "4294967296", "99999999999999999999999", "-1"};
const Pool kAreas = {"0.0.0.0", "0.0.0.1"};
const Pool kOspfInterfaces = {"l3-1", "l3-2", "l3-10", "loopback-0", "l3", "nodash", "l3-"};
const Pool kOspfAddresses = {"10.0.0.1", "10.0.0.2", "192.0.2.1", "x", ""};
const Pool kNetmasks = {"24", "30", "32", "0", "255"};
const Pool kCompoundIds = {"65537", "131073", "1", "0", "4294967295"};
const Pool kProcessIds = {"1", "2", "2147483648", "4294967295"};
const Pool kInterfaceIndexes = {"0", "1000001", "1000005", "1000010", "1000100"};
const Pool kVrfIndexes = {"0", "1", "2", "3"};

constexpr int kMaxEntries = 4;
constexpr int kMaxAddresses = 3;

std::string Pick(FuzzedDataProvider& data, const Pool& pool) {
    return pool[data.ConsumeIntegralInRange<size_t>(0, pool.size() - 1)];
}

std::string Node(const std::string& name, const std::string& content) {
    return content.empty() ? std::string() : Element(name, content);
}

std::string OptionalLeaf(FuzzedDataProvider& data, const std::string& name, const Pool& pool) {
    return data.ConsumeBool() ? Element(name, Pick(data, pool)) : std::string();
}

// Up to kMaxAddresses distinct values, each as an entry of list `list` keyed
// by its leaf ip.
std::string AddressList(FuzzedDataProvider& data, const std::string& list, const Pool& pool) {
    std::set<std::string> addresses;
    for (int count = data.ConsumeIntegralInRange(0, kMaxAddresses); count > 0; --count) {
        addresses.insert(Pick(data, pool));
    }
    std::string xml;
    for (const std::string& address : addresses) {
        xml += Element(list, Element("ip", address));
    }
    return xml;
}

std::string Ipv6(FuzzedDataProvider& data, bool with_router_advertisement) {
    std::string content = AddressList(data, "address", kIpv6);
    if (with_router_advertisement && data.ConsumeBool()) {
        std::string timers = OptionalLeaf(data, "max-interval", kTimers);
        timers += OptionalLeaf(data, "min-interval", kTimers);
        timers += OptionalLeaf(data, "lifetime", kTimers);
        content += Element("nd", Element("ra", timers));
    }
    return Node("ipv6", content);
}

// Entries of a list by key: a later entry with the same key replaces the
// earlier one, so the text never holds a key twice.
using Entries = std::map<std::string, std::string>;

template <typename MakeEntry>
std::string List(FuzzedDataProvider& data, MakeEntry make_entry) {
    Entries entries;
    for (int count = data.ConsumeIntegralInRange(0, kMaxEntries); count > 0; --count) {
        make_entry(entries);
    }
    std::string xml;
    for (const auto& entry : entries) {
        xml += entry.second;
    }
    return xml;
}

// Entries of an interface list: a name from the pool, the VRF, then what
// content makes for the kind.
template <typename Content>
std::string InterfaceList(FuzzedDataProvider& data, const std::string& kind, const Pool& names,
                          Content content) {
    return List(data, [&](Entries& entries) {
        const std::string name = Pick(data, names);
        std::string leaves = Element("name", name) + OptionalLeaf(data, "vrf", kVrfs);
        leaves += content();
        entries[name] = "<" + kind + " xmlns=\"" + kIpappNs + "\">" + leaves + "</" + kind + ">";
    });
}

std::string L3Interfaces(FuzzedDataProvider& data) {
    return InterfaceList(data, "l3", kL3Names, [&data] {
        std::string content =
            Node("ipv4", Node("address", OptionalLeaf(data, "ip", kIpv4) +
                                             AddressList(data, "secondary", kIpv4)));
        content += Ipv6(data, true);
        return content + Node("lower-layer-if", OptionalLeaf(data, "vlan", kVlans));
    });
}

std::string Loopbacks(FuzzedDataProvider& data) {
    return InterfaceList(data, "loopback", kOtherNames, [&data] {
        const std::string ipv4 = Node("ipv4", AddressList(data, "address", kIpv4));
        return ipv4 + Ipv6(data, false);
    });
}

std::string Management(FuzzedDataProvider& data) {
    return InterfaceList(data, "mgmt", kOtherNames, [&data] {
        const std::string ipv4 = Node("ipv4", Node("address", OptionalLeaf(data, "ip", kIpv4)));
        return ipv4 + Ipv6(data, true);
    });
}

// A list entry whose keys come from the pools, in the order given, followed
// by the optional leaves.
struct Field {
    const char* name;
    const Pool* pool;
};

std::string KeyedEntries(FuzzedDataProvider& data, const std::string& list,
                         const std::string& attributes, const std::vector<Field>& keys,
                         const std::vector<Field>& optional) {
    return List(data, [&](Entries& entries) {
        std::string key_xml;
        for (const Field& key : keys) {
            key_xml += Element(key.name, Pick(data, *key.pool));
        }
        std::string xml = key_xml;
        for (const Field& leaf : optional) {
            xml += OptionalLeaf(data, leaf.name, *leaf.pool);
        }
        entries[key_xml] = "<" + list + attributes + ">" + xml + "</" + list + ">";
    });
}

std::string StaticRoutes(FuzzedDataProvider& data) {
    return KeyedEntries(data, "rtmStaticRtEntry", "",
                        {{"rtmStaticRtVrfCmpntId", &kVrfIds},
                         {"rtmStaticRtDestAddrType", &kAddressTypes},
                         {"rtmStaticRtDestAddr", &kOctets},
                         {"rtmStaticRtDestPrefixLen", &kPrefixLengths},
                         {"rtmStaticRtFteIndex", &kFteIndexes},
                         {"rtmStaticRtNextHop", &kOctets}},
                        {{"rtmStaticRtPreference", &kFteIndexes}});
}

std::string GlobalRouteInterfaces(FuzzedDataProvider& data) {
    return KeyedEntries(data, "rtmStaticRtEntry-global", std::string(" xmlns=\"") + kRtmNs + "\"",
                        {{"index", &kFteIndexes},
                         {"destination", &kOctets},
                         {"prefix-len", &kPrefixLengths},
                         {"next-hop", &kOctets}},
                        {{"interface-name", &kOutputInterfaces}});
}

std::string Ospfv2Interfaces(FuzzedDataProvider& data) {
    return KeyedEntries(data, "ospf-interface-l3", "",
                        {{"ospf-pm-compound-id", &kCompoundIdTexts},
                         {"ospf-pm-area-id", &kAreas},
                         {"ospf-pm-if-name", &kOspfInterfaces},
                         {"ospf-pm-ip-addr", &kOspfAddresses}},
                        {{"ospf-pm-ip-netmask", &kNetmasks}});
}

std::string Ospfv2Processes(FuzzedDataProvider& data) {
    return KeyedEntries(data, "ospf-index-to-proc-id", "", {{"ospf-pm-compound-id", &kCompoundIds}},
                        {{"proc_id", &kProcessIds}, {"vrf_name", &kVrfs}});
}

std::string Ospfv3Interfaces(FuzzedDataProvider& data) {
    return KeyedEntries(data, "ospfv3-interface-l3", "",
                        {{"ospfv3-pm-proc-id", &kProcessIds},
                         {"ospfv3-pm-area-id", &kAreas},
                         {"ospfv3-pm-if-name", &kOspfInterfaces}},
                        {{"ospfv3-pm-if-index", &kInterfaceIndexes}});
}

std::string VrfNames(FuzzedDataProvider& data) {
    return KeyedEntries(data, "indexTOstring", "", {{"n", &kVrfIndexes}}, {{"vname", &kVrfs}});
}

}  // namespace

GeneratedConfiguration::GeneratedConfiguration(FuzzedDataProvider& data) {
    for (size_t part = 0; part < kParts; ++part) {
        MakePart(data, part);
    }
}

GeneratedConfiguration::GeneratedConfiguration(FuzzedDataProvider& data,
                                               const GeneratedConfiguration& base)
    : parts_(base.parts_) {
    for (size_t part = 0; part < kParts; ++part) {
        if (data.ConsumeBool()) {
            MakePart(data, part);
        }
    }
}

void GeneratedConfiguration::MakePart(FuzzedDataProvider& data, size_t part) {
    using MakeFunction = std::string (*)(FuzzedDataProvider&);
    static constexpr std::array<MakeFunction, kParts> kMakers = {
        L3Interfaces,     Loopbacks,       Management,       StaticRoutes, GlobalRouteInterfaces,
        Ospfv2Interfaces, Ospfv2Processes, Ospfv3Interfaces, VrfNames};
    parts_[part] = kMakers[part](data);
}

std::string GeneratedConfiguration::Xml() const {
    return Interfaces(parts_[0] + parts_[1] + parts_[2]) + "<DC-RTM-MIB xmlns=\"" + kRtmNs + "\">" +
           Node("rtmStaticRtTable", parts_[3]) + "</DC-RTM-MIB>" + parts_[4] +
           Internal(parts_[5] + parts_[6] + parts_[7] + Node("vrf-config", parts_[8]));
}

}  // namespace ipapp_fuzz
