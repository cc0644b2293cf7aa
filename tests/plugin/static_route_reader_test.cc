// The static route reader against a real datastore: what is stored, what
// is only counted, and the output interface of each route.
#include "ip_app_valid/confd_api.h"

#include <confd_fault_injection.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "candidate.h"
#include "configuration_xml.h"
#include "snapshot_text.h"

namespace {

using ip_application::config_valid::ConfigAddrFamily;
using ip_application::config_valid::StaticRouteConfig;
using plugin_test::Candidate;
using plugin_test::Hex4;
using plugin_test::Internal;
using plugin_test::IPv4Route;
using plugin_test::IPv6Route;
using plugin_test::Records;
using plugin_test::RouteRow;
using plugin_test::Routes;
using plugin_test::VrfConfig;

constexpr ConfigAddrFamily kIPv4 = ConfigAddrFamily::IPv4;
constexpr ConfigAddrFamily kIPv6 = ConfigAddrFamily::IPv6;

struct Case {
    const char* what;
    std::string candidate;
    std::vector<ConfigAddrFamily> reads;
    std::vector<std::string> ipv4_routes;
    std::vector<std::string> ipv6_routes;
    uint32_t ipv4_count;
    uint32_t ipv6_count;
};

RouteRow OtherType(const char* type, const std::string& dest) {
    RouteRow row = IPv4Route(dest, 24, "10.9.9.9", "l3-9");
    row.type = type;
    return row;
}

TEST(StaticRouteReader, StoresRoutesWithANextHopAndCountsEveryRow) {
    const Case cases[] = {
        {"no table", "", {kIPv4, kIPv6}, {}, {}, 0, 0},
        {"IPv4 rows in cursor order; a row without next hop is counted only",
         Routes({IPv4Route("20.0.0.0", 8, "10.0.0.1", "l3-7"),
                 IPv4Route("30.0.0.0", 8, "0.0.0.0", "l3-7"),
                 IPv4Route("10.0.0.0", 8, "10.0.0.2", "l3-8")}),
         {kIPv4},
         {"l3 8|global|10.0.0.0/8|10.0.0.2", "l3 7|global|20.0.0.0/8|10.0.0.1"},
         {},
         3,
         0},
        {"an IPv4 read counts the IPv6 rows without storing them",
         Routes({IPv4Route("20.0.0.0", 8, "10.0.0.1"), IPv6Route("2001:db8::", 32, "fe80::1"),
                 IPv6Route("2001:db9::", 32, "fe80::2")}),
         {kIPv4},
         {"|global|20.0.0.0/8|10.0.0.1"},
         {},
         1,
         2},
        {"an IPv6 read, with an unspecified next hop",
         Routes({IPv4Route("20.0.0.0", 8, "10.0.0.1"),
                 IPv6Route("2001:db8::", 32, "fe80::1", "l3-6"),
                 IPv6Route("2001:db9::", 32, "::", "l3-6")}),
         {kIPv6},
         {},
         {"l3 6|global|2001:db8::/32|fe80::1"},
         1,
         2},
        {"other address types are neither counted nor stored",
         Routes({OtherType("ipv4z", "20.0.0.0"), OtherType("ipv6z", "21.0.0.0"),
                 OtherType("dns", "22.0.0.0"), OtherType("unknown", "23.0.0.0"),
                 IPv4Route("24.0.0.0", 8, "10.0.0.1")}),
         {kIPv4, kIPv6},
         {"|global|24.0.0.0/8|10.0.0.1"},
         {},
         1,
         0},
        {"VRF names from the VRF table, global without an entry",
         Routes({IPv4Route("20.0.0.0", 8, "10.0.0.1", "", 0x00010003),
                 IPv4Route("21.0.0.0", 8, "10.0.0.1", "", 0x00010004),
                 IPv4Route("22.0.0.0", 8, "10.0.0.1", "", 0)}) +
             Internal(VrfConfig({{3, "red"}, {0, "zero"}})),
         {kIPv4},
         {"|zero|22.0.0.0/8|10.0.0.1", "|red|20.0.0.0/8|10.0.0.1", "|global|21.0.0.0/8|10.0.0.1"},
         {},
         3,
         0},
        {"output interface names: the third character becomes a blank",
         Routes({IPv4Route("20.0.0.0", 8, "10.0.0.1", "l3-a-b"),
                 IPv4Route("21.0.0.0", 8, "10.0.0.1", "loopback-1"),
                 IPv4Route("22.0.0.0", 8, "10.0.0.1", "ab")}),
         {kIPv4},
         {"l3 a-b|global|20.0.0.0/8|10.0.0.1", "lo pback-1|global|21.0.0.0/8|10.0.0.1",
          "ab |global|22.0.0.0/8|10.0.0.1"},
         {},
         3,
         0},
    };
    for (const Case& c : cases) {
        Candidate candidate(c.candidate);
        StaticRouteConfig& routes = candidate.config().static_route_config;
        for (ConfigAddrFamily family : c.reads) {
            routes.ReadConfigIfNeeded(family);
        }
        EXPECT_EQ(Records(routes.ipv4_routes()), c.ipv4_routes) << c.what;
        EXPECT_EQ(Records(routes.ipv6_routes()), c.ipv6_routes) << c.what;
        EXPECT_EQ(routes.ipv4_entry_count(), c.ipv4_count) << c.what;
        EXPECT_EQ(routes.ipv6_entry_count(), c.ipv6_count) << c.what;
    }
}

TEST(StaticRouteReader, EveryReadRecountsBothFamilies) {
    Candidate candidate(
        Routes({IPv4Route("20.0.0.0", 8, "10.0.0.1"), IPv6Route("2001:db8::", 32, "fe80::1")}));
    StaticRouteConfig& routes = candidate.config().static_route_config;
    routes.ReadConfigIfNeeded(kIPv4);
    candidate.Change(
        Routes({IPv6Route("2001:db8::", 32, "fe80::1"), IPv6Route("2001:db9::", 32, "fe80::1"),
                IPv6Route("2001:dba::", 32, "fe80::1")}));
    routes.ReadConfigIfNeeded(kIPv6);
    EXPECT_EQ(routes.ipv4_entry_count(), 0u);
    EXPECT_EQ(routes.ipv6_entry_count(), 3u);
    EXPECT_EQ(routes.ipv4_routes().size(), 1u) << "the IPv4 routes of the first read stay";
    EXPECT_EQ(routes.ipv6_routes().size(), 3u);
}

TEST(StaticRouteReader, UnreadableTableLeavesListsAndCountsAsTheyWere) {
    Candidate candidate(Routes({IPv4Route("20.0.0.0", 8, "10.0.0.1")}));
    StaticRouteConfig& routes = candidate.config().static_route_config;
    routes.ReadConfigIfNeeded(kIPv4);
    confdstore::fault_injection::fail(
        "maapi_exists", "/DC-RTM-MIB/rtmStaticRtTable/rtmStaticRtEntry", CONFD_ERR_ACCESS_DENIED);
    routes.ReadConfigIfNeeded(kIPv6);
    EXPECT_TRUE(routes.ipv6_read());
    EXPECT_EQ(routes.ipv4_entry_count(), 1u);
    EXPECT_EQ(routes.ipv4_routes().size(), 1u);
}

TEST(StaticRouteReader, OneCharacterInterfaceNameEndsTheReadUnread) {
    Candidate candidate(Routes({IPv4Route("10.0.0.0", 8, "10.0.0.1", "l3-1"),
                                IPv4Route("20.0.0.0", 8, "10.0.0.1", "x"),
                                IPv4Route("30.0.0.0", 8, "10.0.0.1", "l3-3")}));
    StaticRouteConfig& routes = candidate.config().static_route_config;
    EXPECT_THROW(routes.ReadConfigIfNeeded(kIPv4), std::out_of_range);
    EXPECT_FALSE(routes.ipv4_read());
    EXPECT_EQ(Records(routes.ipv4_routes()),
              (std::vector<std::string>{"l3 1|global|10.0.0.0/8|10.0.0.1"}));
}

TEST(RouteInterfaceName, LooksUpTheGlobalRouteWithBlanksInsideTheBraces) {
    // The global route's keys are found by the path the reader builds;
    // failing exactly that path makes the name unreadable.
    Candidate candidate(Routes({IPv4Route("10.0.0.0", 8, "10.0.0.1", "l3-7")}));
    confdstore::fault_injection::fail("maapi_get_elem",
                                      "/rtmStaticRtEntry-global{ 1 " + Hex4("10.0.0.0") + " 8 " +
                                          Hex4("10.0.0.1") + " }/interface-name",
                                      CONFD_ERR_NOEXISTS);
    StaticRouteConfig& routes = candidate.config().static_route_config;
    routes.ReadConfigIfNeeded(kIPv4);
    EXPECT_EQ(Records(routes.ipv4_routes()),
              (std::vector<std::string>{"|global|10.0.0.0/8|10.0.0.1"}));
    EXPECT_EQ(confdstore::fault_injection::hits(), 1);
}

}  // namespace
