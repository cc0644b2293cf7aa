// The snapshot's readers against the datastore: what each stores and counts,
// what it reports, which failed reads give emptier values, which malformed
// keys end a read with its family unread, and how a later read of the other
// family merges.
#include "ip_app_valid/confd_api.h"

#include <confd_fault_injection.h>
#include <gtest/gtest.h>
#include <boost/system/system_error.hpp>

#include <stdexcept>
#include <string>
#include <vector>

#include "config_xml.h"
#include "datastore_call.h"
#include "host_log.h"
#include "record_text.h"

namespace {

using ip_application::config_valid::Config;
using ip_application::config_valid::ConfigAddrFamily;
using ip_application::config_valid::GenericConfig;
using ip_application::config_valid::InterfaceConfig;
using ip_application::config_valid::Ospfv2Config;
using ip_application::config_valid::StaticRouteConfig;
using namespace ipapp_generator;
using namespace plugin_test;

constexpr ConfigAddrFamily kIPv4 = ConfigAddrFamily::IPv4;
constexpr ConfigAddrFamily kIPv6 = ConfigAddrFamily::IPv6;

// What a reader holds, one line each: "read 4", "read 46" or "read -", then
// its records' texts; a route reader's last line is its counts.
std::vector<std::string> Held(const GenericConfig& reader) {
    const std::string families =
        std::string(reader.ipv4_read() ? "4" : "") + (reader.ipv6_read() ? "6" : "");
    return {"read " + (families.empty() ? "-" : families)};
}
template <typename Records>
std::vector<std::string> Held(const GenericConfig& reader, const Records& records) {
    std::vector<std::string> held = Held(reader);
    const std::vector<std::string> texts = Texts(records);
    held.insert(held.end(), texts.begin(), texts.end());
    return held;
}
std::vector<std::string> Held(const InterfaceConfig& reader) {
    return Held(reader, reader.interfaces());
}
std::vector<std::string> Held(const Ospfv2Config& reader) {
    return Held(reader, reader.interfaces());
}
std::vector<std::string> Held(const StaticRouteConfig& reader) {
    std::vector<std::string> held = Held(reader, reader.ipv4_routes());
    const std::vector<std::string> ipv6 = Texts(reader.ipv6_routes());
    held.insert(held.end(), ipv6.begin(), ipv6.end());
    held.push_back("counted " + std::to_string(reader.ipv4_entry_count()) + " IPv4, " +
                   std::to_string(reader.ipv6_entry_count()) + " IPv6");
    return held;
}

// One read of one reader, and what it holds after it.
struct Reading {
    void (*read)(Config&);
    std::vector<std::string> (*held)(const Config&);
};
template <auto reader, ConfigAddrFamily family>
constexpr Reading kRead{[](Config& c) { (c.*reader).ReadConfigIfNeeded(family); },
                        [](const Config& c) { return Held(c.*reader); }};
constexpr Reading kL3IPv4 = kRead<&Config::l3_config, kIPv4>;
constexpr Reading kL3IPv6 = kRead<&Config::l3_config, kIPv6>;
constexpr Reading kMgmtIPv4 = kRead<&Config::mgmt_config, kIPv4>;
constexpr Reading kRoutesIPv4 = kRead<&Config::static_route_config, kIPv4>;
constexpr Reading kRoutesIPv6 = kRead<&Config::static_route_config, kIPv6>;
constexpr Reading kOspfv2 = kRead<&Config::ospfv2_config, kIPv4>;

// "threw <kind>" when the read throws, then what the reader holds.
std::vector<std::string> Outcome(const Reading& reading, Config& config) {
    std::vector<std::string> outcome;
    try {
        reading.read(config);
    } catch (const boost::system::system_error&) {
        outcome.push_back("threw system_error");
    } catch (const std::invalid_argument&) {
        outcome.push_back("threw invalid_argument");
    } catch (const std::out_of_range&) {
        outcome.push_back("threw out_of_range");
    }
    const std::vector<std::string> held = reading.held(config);
    outcome.insert(outcome.end(), held.begin(), held.end());
    return outcome;
}

std::string Fault(const std::string& function_and_text) {
    return "fault: src/lib/config:<line>: " + function_and_text + " (code 0)";
}

struct Case {
    const char* what;
    std::string candidate;
    Reading reading;
    std::vector<std::string> outcome;
    std::vector<std::string> log;
    const char* failing_call = nullptr;  // a read that fails on failing_path
    std::string failing_path = "";
};

TEST(SnapshotReaders, StoreCountReportAndFail) {
    const std::string ospf_process_7 = OspfProcess(7, 2, "red");
    const std::string good_ospf =
        OspfInterface("1", "0.0.0.1", "l3-1", "10.0.0.1", 24) + OspfProcess(1, 2, "red");
    const std::vector<std::string> good_ospf_read_stopped = {"read -",
                                                             "l3 1|2|red|0.0.0.1|10.0.0.1/24"};
    const Case cases[] = {
        {"l3: keys and secondaries in key order, an unspecified primary left out silently, an "
         "unspecified secondary reported with its key, an absent VRF global, an unreadable one "
         "empty",
         Interfaces(L3("5", IPv4("0.0.0.0/24", {"10.0.3.1/24", "0.0.0.0/16", "10.0.0.2/24"}) +
                                Vrf("red") + Vlan(100)) +
                    L3("6", Vrf("blue")) + L3("7") + L3("10")),
         kL3IPv4,
         {"read 4", "l3 10|global|||0:0", "l3 5|red|10.0.0.2/24,10.0.3.1/24||3:100", "l3 6||||0:0",
          "l3 7|global|||0:0"},
         {Fault("get_intf_ipv4_addr_mask_list: Unspecified IPv4 address for key '0.0.0.0/16'")},
         "maapi_get_elem",
         "/config/interface/l3{6}/vrf"},
        {"l3: IPv6",
         Interfaces(L3("5", IPv6({"2001:db8::1/64", "::/64"}))),
         kL3IPv6,
         {"read 6", "l3 5|global||2001:db8::1/64|0:0"},
         {Fault("get_intf_ipv6_addr_mask_list: Unspecified IPv6 address for key '::/64'")}},
        {"mgmt: an unspecified or missing address is reported as the address read",
         Interfaces(Mgmt("0", IPv4("0.0.0.0/8") + Vrf("mgmt")) + Mgmt("1")),
         kMgmtIPv4,
         {"read 4", "mgmt 0|mgmt|||0:0", "mgmt 1|global|||0:0"},
         {Fault("ReadConfig: Unspecified IPv4 address for key '0.0.0.0/8'"),
          Fault("ReadConfig: Unspecified IPv4 address for key '0.0.0.0/0'")}},
        {"IPv4 routes in table order; rows without next hop and IPv6 rows counted only, other "
         "address types neither; output interface names with a blank for their third character",
         Routes({{"ipv4", "20.0.0.0", 8, "10.0.0.1", "l3-a-b"},
                 {"ipv4", "30.0.0.0", 8, "0.0.0.0", "l3-7"},
                 {"ipv4", "10.0.0.0", 8, "10.0.0.2", "loopback-1"},
                 {"ipv4", "21.0.0.0", 8, "10.0.0.1", "ab"},
                 {"ipv6", "2001:db8::", 32, "fe80::1"},
                 {"ipv4z", "22.0.0.0", 8, "10.0.0.1"},
                 {"ipv6z", "23.0.0.0", 8, "10.0.0.1"},
                 {"dns", "24.0.0.0", 8, "10.0.0.1"},
                 {"unknown", "25.0.0.0", 8, "10.0.0.1"}}),
         kRoutesIPv4,
         {"read 4", "lo pback-1|global|10.0.0.0/8|10.0.0.2", "l3 a-b|global|20.0.0.0/8|10.0.0.1",
          "ab |global|21.0.0.0/8|10.0.0.1", "counted 4 IPv4, 1 IPv6"},
         {}},
        {"IPv6 routes",
         Routes({{"ipv4", "20.0.0.0", 8, "10.0.0.1"},
                 {"ipv6", "2001:db8::", 32, "fe80::1", "l3-6"},
                 {"ipv6", "2001:db9::", 32, "::", "l3-6"}}),
         kRoutesIPv6,
         {"read 6", "l3 6|global|2001:db8::/32|fe80::1", "counted 1 IPv4, 2 IPv6"},
         {}},
        {"a one-character output interface name ends the read",
         Routes({{"ipv4", "10.0.0.0", 8, "10.0.0.1", "l3-1"},
                 {"ipv4", "20.0.0.0", 8, "10.0.0.1", "x"},
                 {"ipv4", "30.0.0.0", 8, "10.0.0.1", "l3-3"}}),
         kRoutesIPv4,
         {"threw out_of_range", "read -", "l3 1|global|10.0.0.0/8|10.0.0.1",
          "counted 2 IPv4, 0 IPv6"},
         {}},
        {"OSPFv2: one record per interface, process and VRF, whatever the area; the first dash of "
         "the interface becomes a blank, a key without one is skipped unread",
         Internal(OspfInterface("7", "0.0.0.2", "l3-5", "10.0.0.1", 24) +
                  OspfInterface("8", "0.0.0.1", "l3-5", "10.0.1.1", 16) +
                  OspfInterface("9", "0.0.0.1", "l3-5", "10.0.2.1", 24) +
                  OspfInterface("10", "0.0.0.1", "l3-5", "10.0.3.1", 24) +
                  OspfInterface("7", "0.0.0.0", "loopback-a-1", "1.1.1.1", 32) +
                  OspfInterface("x", "bad", "l3_5", "bad", 24) + ospf_process_7 +
                  OspfProcess(8, 2, "red") + OspfProcess(9, 3, "red") + OspfProcess(10, 2, "blue")),
         kOspfv2,
         {"read 4", "l3 5|2|blue|0.0.0.1|10.0.3.1/24", "loopback a-1|2|red|0.0.0.0|1.1.1.1/32",
          "l3 5|2|red|0.0.0.2|10.0.0.1/24,10.0.1.1/16", "l3 5|3|red|0.0.0.1|10.0.2.1/24"},
         {}},
        {"OSPFv2: failed lookups are logged with the compound identifier",
         Internal(OspfInterface("7", "0.0.0.1", "l3-5", "10.0.0.1", 24) +
                  OspfInterface("9", "0.0.0.1", "l3-6", "10.0.0.2", 24) + ospf_process_7),
         kOspfv2,
         {"read 4", "l3 5|2|red|0.0.0.1|10.0.0.1/0", "l3 6|0||0.0.0.1|10.0.0.2/24"},
         {"debug: Failed to get IPv4 netmask from process ID 7!",
          "debug: Failed to get process ID from compound ID 9!",
          "debug: Failed to get VRF name from compound ID 9!"},
         "maapi_get_u_int8_elem",
         "/internal/ospf-interface-l3{7 0.0.0.1 l3-5 10.0.0.1}/ospf-pm-ip-netmask"},
        {"OSPFv2: a compound identifier without digits",
         Internal(good_ospf + OspfInterface("x7", "0.0.0.1", "l3-5", "10.0.0.1", 24)),
         kOspfv2,
         {"threw invalid_argument", good_ospf_read_stopped[0], good_ospf_read_stopped[1]},
         {}},
        {"OSPFv2: a compound identifier out of range",
         Internal(good_ospf +
                  OspfInterface("99999999999999999999999", "0.0.0.1", "l3-5", "10.0.0.1", 24)),
         kOspfv2,
         {"threw out_of_range", good_ospf_read_stopped[0], good_ospf_read_stopped[1]},
         {}},
        {"OSPFv2: an area that is not an address",
         Internal(good_ospf + OspfInterface("7", "0.0.1", "l3-5", "10.0.0.1", 24)),
         kOspfv2,
         {"threw system_error", good_ospf_read_stopped[0], good_ospf_read_stopped[1]},
         {}},
    };
    for (const Case& c : cases) {
        HostLog log;
        DatastoreCall call("", c.candidate);
        if (c.failing_call != nullptr) {
            confdstore::fault_injection::fail(c.failing_call, c.failing_path, CONFD_ERR_NOEXISTS);
        }
        EXPECT_EQ(Outcome(c.reading, call.config()), c.outcome) << c.what;
        EXPECT_EQ(log.Lines(), c.log) << c.what;
    }
}

TEST(SnapshotReaders, LaterReadOfTheOtherFamilyKeepsWhatTheFirstFound) {
    DatastoreCall call("",
                       Interfaces(L3("5", IPv4("10.5.0.1/24") + Vrf("red") + Vlan(5)) + L3("7")));
    kL3IPv4.read(call.config());
    call.Change(Interfaces(
        L3("1", IPv6({"2001:db8:1::1/64"})) +
        L3("5", IPv4("10.5.9.1/24") + IPv6({"2001:db8:5::1/64"}) + Vrf("blue") + Vlan(6)) +
        L3("7", IPv4("10.7.0.1/24") + IPv6({"2001:db8:7::1/64"}))));
    kL3IPv4.read(call.config());
    kL3IPv6.read(call.config());
    // The IPv6 read fills the IPv6 lists; VRF, lower layer and the IPv4 lists
    // stay those of the first read, new interfaces come last.
    EXPECT_EQ(Held(call.config().l3_config),
              (std::vector<std::string>{"read 46", "l3 5|red|10.5.0.1/24|2001:db8:5::1/64|3:5",
                                        "l3 7|global||2001:db8:7::1/64|0:0",
                                        "l3 1|global||2001:db8:1::1/64|0:0"}));
}

}  // namespace
