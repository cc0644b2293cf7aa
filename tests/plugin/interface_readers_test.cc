// The interface readers against a real datastore: what each reads per
// interface, which unspecified addresses are reported, and how the two
// address families merge.
#include "ip_app_valid/confd_api.h"

#include <confd_fault_injection.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "candidate.h"
#include "configuration_xml.h"
#include "host_log.h"
#include "snapshot_text.h"

namespace {

using ip_application::config_valid::ConfigAddrFamily;
using ip_application::config_valid::InterfaceConfig;
using plugin_test::Candidate;
using plugin_test::Interfaces;
using plugin_test::IPv6;
using plugin_test::L3;
using plugin_test::L3IPv4;
using plugin_test::Loopback;
using plugin_test::LoopbackIPv4;
using plugin_test::Mgmt;
using plugin_test::MgmtIPv4;
using plugin_test::Records;
using plugin_test::Vlan;
using plugin_test::Vrf;

constexpr ConfigAddrFamily kIPv4 = ConfigAddrFamily::IPv4;
constexpr ConfigAddrFamily kIPv6 = ConfigAddrFamily::IPv6;

enum class Kind { kL3, kLoopback, kMgmt };

InterfaceConfig& ReaderOf(Candidate& candidate, Kind kind) {
    switch (kind) {
        case Kind::kL3:
            return candidate.config().l3_config;
        case Kind::kLoopback:
            return candidate.config().lo_config;
        default:
            return candidate.config().mgmt_config;
    }
}

// "function: text" of every fault report.
std::vector<std::string> Faults(plugin_test::HostLog& log) {
    std::vector<std::string> faults;
    for (const plugin_test::Fault& fault : log.Faults()) {
        EXPECT_EQ(fault.file, "src/lib/config");
        EXPECT_EQ(fault.code, 0);
        faults.push_back(fault.function + ": " + fault.text);
    }
    return faults;
}

struct Case {
    const char* what;
    std::string entries;
    Kind kind;
    std::vector<ConfigAddrFamily> reads;
    std::vector<std::string> records;
    std::vector<std::string> faults;
};

TEST(InterfaceReaders, ReadEachKindIntoRecords) {
    const Case cases[] = {
        {"l3: primary first, then the secondaries in key order",
         L3("5", L3IPv4("10.1.2.3/24", {"10.1.3.1/24", "10.0.3.1/24"}) + Vrf("red") + Vlan(100)),
         Kind::kL3,
         {kIPv4},
         {"l3 5|red|10.1.2.3/24,10.0.3.1/24,10.1.3.1/24||100"},
         {}},
        {"l3: an unspecified primary is left out silently",
         L3("5", L3IPv4("0.0.0.0/24", {"10.0.0.2/24", "10.0.0.1/24"})),
         Kind::kL3,
         {kIPv4},
         {"l3 5|global|10.0.0.1/24,10.0.0.2/24||0"},
         {}},
        {"l3: an unspecified secondary is reported with its key",
         L3("5", L3IPv4("10.0.0.1/24", {"0.0.0.0/16", "10.0.0.2/24"})),
         Kind::kL3,
         {kIPv4},
         {"l3 5|global|10.0.0.1/24,10.0.0.2/24||0"},
         {"get_intf_ipv4_addr_mask_list: Unspecified IPv4 address for key '0.0.0.0/16'"}},
        {"l3: IPv6 only, with an unspecified address and the VLAN",
         L3("5", IPv6({"2001:db8::1/64", "::/64"}) + Vlan(4094)),
         Kind::kL3,
         {kIPv6},
         {"l3 5|global||2001:db8::1/64|4094"},
         {"get_intf_ipv6_addr_mask_list: Unspecified IPv6 address for key '::/64'"}},
        {"loopback: all addresses, unspecified ones reported",
         Loopback("1", LoopbackIPv4({"1.1.1.1/32", "0.0.0.0/32"}) + Vrf("red")),
         Kind::kLoopback,
         {kIPv4},
         {"loopback 1|red|1.1.1.1/32||0"},
         {"get_intf_ipv4_addr_mask_list: Unspecified IPv4 address for key '0.0.0.0/32'"}},
        {"mgmt: the address",
         Mgmt("0", MgmtIPv4("172.16.0.10/16") + Vrf("mgmt")),
         Kind::kMgmt,
         {kIPv4},
         {"mgmt 0|mgmt|172.16.0.10/16||0"},
         {}},
        {"mgmt: an unspecified address is reported with the address, not the key",
         Mgmt("0", MgmtIPv4("0.0.0.0/8")),
         Kind::kMgmt,
         {kIPv4},
         {"mgmt 0|global|||0"},
         {"ReadConfig: Unspecified IPv4 address for key '0.0.0.0/8'"}},
        {"mgmt: a missing address is reported as the unset address",
         Mgmt("0", IPv6({"2001:db8::9/64"})),
         Kind::kMgmt,
         {kIPv4, kIPv6},
         {"mgmt 0|global||2001:db8::9/64|0"},
         {"ReadConfig: Unspecified IPv4 address for key '0.0.0.0/0'"}},
        {"records in key order, both families merged",
         L3("5", L3IPv4("10.5.0.1/24") + IPv6({"2001:db8:5::1/64"})) +
             L3("10", IPv6({"2001:db8:10::1/64"})) + L3("2"),
         Kind::kL3,
         {kIPv4, kIPv6},
         {"l3 10|global||2001:db8:10::1/64|0", "l3 2|global|||0",
          "l3 5|global|10.5.0.1/24|2001:db8:5::1/64|0"},
         {}},
    };
    for (const Case& c : cases) {
        plugin_test::HostLog log;
        Candidate candidate(Interfaces(c.entries));
        InterfaceConfig& reader = ReaderOf(candidate, c.kind);
        for (ConfigAddrFamily family : c.reads) {
            reader.ReadConfigIfNeeded(family);
        }
        EXPECT_EQ(Records(reader.interfaces()), c.records) << c.what;
        EXPECT_EQ(Faults(log), c.faults) << c.what;
    }
}

TEST(InterfaceReaders, AbsentVrfIsGlobalUnreadableVrfIsEmpty) {
    Candidate candidate(Interfaces(L3("5", Vrf("red")) + L3("6", Vrf("blue")) + L3("7")));
    confdstore::fault_injection::fail("maapi_get_elem", "/config/interface/l3{6}/vrf",
                                      CONFD_ERR_NOEXISTS);
    const auto& l3 = candidate.config().l3_config;
    EXPECT_EQ(l3.get_vrf_name("/config/interface/ipapp:l3{7}/vrf"), "global");
    EXPECT_EQ(l3.get_vrf_name("/config/interface/ipapp:l3{6}/vrf"), "");
    EXPECT_EQ(l3.get_vrf_name("/config/interface/ipapp:l3{5}/vrf"), "red");
    candidate.config().l3_config.ReadConfigIfNeeded(kIPv4);
    EXPECT_EQ(Records(l3.interfaces()),
              (std::vector<std::string>{"l3 5|red|||0", "l3 6||||0", "l3 7|global|||0"}));
}

TEST(InterfaceReaders, FailedReadsGiveAnEmptierSnapshot) {
    Candidate candidate(Interfaces(L3("5", L3IPv4("10.0.0.1/24", {"10.0.0.2/24"}) + Vlan(9))));
    confdstore::fault_injection::fail("maapi_get_ipv4_and_plen_elem",
                                      "/config/interface/l3{5}/ipv4/address/ip", CONFD_ERR_BADTYPE);
    confdstore::fault_injection::fail(
        "maapi_get_elem", "/config/interface/l3{5}/lower-layer-if/vlan", CONFD_ERR_NOEXISTS);
    candidate.config().l3_config.ReadConfigIfNeeded(kIPv4);
    EXPECT_EQ(Records(candidate.config().l3_config.interfaces()),
              (std::vector<std::string>{"l3 5|global|10.0.0.2/24||0"}));

    Candidate unlisted(Interfaces(L3("5", L3IPv4("10.0.0.1/24"))));
    confdstore::fault_injection::fail("maapi_init_cursor", "", CONFD_ERR_BADSTATE);
    unlisted.config().l3_config.ReadConfigIfNeeded(kIPv4);
    EXPECT_TRUE(unlisted.config().l3_config.interfaces().empty());
    EXPECT_TRUE(unlisted.config().l3_config.ipv4_read());
}

TEST(InterfaceReaders, LaterReadsKeepWhatTheFirstReadFound) {
    Candidate candidate(
        Interfaces(L3("5", L3IPv4("10.5.0.1/24") + Vrf("red") + Vlan(5)) + L3("7")));
    auto& l3 = candidate.config().l3_config;
    l3.ReadConfigIfNeeded(kIPv4);
    candidate.Change(Interfaces(
        L3("1", IPv6({"2001:db8:1::1/64"})) +
        L3("5", L3IPv4("10.5.9.1/24") + IPv6({"2001:db8:5::1/64"}) + Vrf("blue") + Vlan(6)) +
        L3("7", L3IPv4("10.7.0.1/24") + IPv6({"2001:db8:7::1/64"}))));
    l3.ReadConfigIfNeeded(kIPv4);
    l3.ReadConfigIfNeeded(kIPv6);
    // VRF and lower layer stay those of the first read; IPv4 is not read
    // again, so l3 7 keeps its empty IPv4 list and l3 5 its first address.
    EXPECT_EQ(Records(l3.interfaces()),
              (std::vector<std::string>{"l3 5|red|10.5.0.1/24|2001:db8:5::1/64|5",
                                        "l3 7|global||2001:db8:7::1/64|0",
                                        "l3 1|global||2001:db8:1::1/64|0"}));
}

TEST(AccessHelpersDeathTest, ValuesOfAnotherTypeStopTheProcess) {
    Candidate candidate(Interfaces(
        L3("5", Vlan(100) + "<ipv6><nd><ra><max-interval>600</max-interval></ra></nd></ipv6>")));
    const auto& l3 = candidate.config().l3_config;
    EXPECT_DEATH(l3.get_intf_lim_id("/config/interface/l3{5}/ipv6/nd/ra/max-interval"),
                 "src/lib/config:[0-9]+: .*get_intf_lim_id.*: Assertion "
                 "`\\(&confd_if_index\\)->type == C_INT32' failed\\.");
    EXPECT_DEATH(l3.get_vrf_name("/config/interface/l3{5}/lower-layer-if/vlan"),
                 "src/lib/config:[0-9]+: .*get_vrf_name.*: Assertion "
                 "`\\(&l3_vrf_name\\)->type == C_BUF' failed\\.");
}

}  // namespace
