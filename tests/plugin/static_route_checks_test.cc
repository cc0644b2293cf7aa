// Static route checks over snapshots read from small configurations: next
// hops, the route budget and output interfaces, and which text wins.
#include "ip_app_valid/confd_api.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "candidate.h"
#include "configuration_xml.h"
#include "host_log.h"
#include "ip_app_valid/validate_config.h"
#include "snapshot.h"

namespace {

using ip_application::config_valid::Config;
using ip_application::config_valid::ConfigAddrFamily;
using ip_application::config_valid::GenericConfig;
using ip_application::config_valid::StaticRouteIPv4;
using ip_application::config_valid::StaticRouteList;
using ip_application::config_valid::ValidateConfig;
using plugin_test::Candidate;
using plugin_test::Interfaces;
using plugin_test::Internal;
using plugin_test::IPv4Route;
using plugin_test::IPv6;
using plugin_test::IPv6Route;
using plugin_test::L3;
using plugin_test::L3IPv4;
using plugin_test::Mgmt;
using plugin_test::MgmtIPv4;
using plugin_test::Routes;
using plugin_test::Vlan;
using plugin_test::Vrf;
using plugin_test::VrfConfig;

constexpr ConfigAddrFamily kIPv4 = ConfigAddrFamily::IPv4;
constexpr ConfigAddrFamily kIPv6 = ConfigAddrFamily::IPv6;

// Reads the families into every interface reader and the route reader.
void ReadAll(Config& config, const std::vector<ConfigAddrFamily>& families) {
    for (ConfigAddrFamily family : families) {
        for (GenericConfig* reader : std::initializer_list<GenericConfig*>{
                 &config.l3_config, &config.lo_config, &config.mgmt_config,
                 &config.static_route_config}) {
            reader->ReadConfigIfNeeded(family);
        }
    }
}

struct Case {
    const char* what;
    std::string candidate;
    std::vector<ConfigAddrFamily> reads;
    const char* error;  // "" when accepted
};

void ExpectVerdicts(const std::vector<Case>& cases,
                    int32_t (ValidateConfig::*check)(const Config&)) {
    for (const Case& c : cases) {
        Candidate candidate(c.candidate);
        ReadAll(candidate.config(), c.reads);
        ValidateConfig checks;
        EXPECT_EQ((checks.*check)(candidate.config()), *c.error == '\0' ? 0 : -1) << c.what;
        EXPECT_EQ(checks.error(), c.error) << c.what;
    }
}

const std::string kL3Seven =
    L3("7", L3IPv4("10.0.0.1/24") + IPv6({"2001:db8::1/64"}) + Vrf("red") + Vlan(7));

TEST(ValidateStaticRouteNextHop, NextHopMustNotBeAnOwnAddressOfItsVrf) {
    const std::string red_vrf = Internal(VrfConfig({{3, "red"}}));
    ExpectVerdicts(
        {
            {"same VRF, equal address",
             Interfaces(kL3Seven) + Routes({IPv4Route("20.0.0.0", 8, "10.0.0.1", "", 3)}) + red_vrf,
             {kIPv4},
             "l3 7 ipv4 address 10.0.0.1/24 and static route 20.0.0.0/8 next-hop 10.0.0.1 cannot "
             "have address conflict."},
            {"another VRF",
             Interfaces(kL3Seven) + Routes({IPv4Route("20.0.0.0", 8, "10.0.0.1", "", 0)}) + red_vrf,
             {kIPv4},
             ""},
            {"inside the subnet but not the address",
             Interfaces(kL3Seven) + Routes({IPv4Route("20.0.0.0", 8, "10.0.0.2", "", 3)}) + red_vrf,
             {kIPv4},
             ""},
            {"IPv6 when only IPv6 was read",
             Interfaces(kL3Seven) + Routes({IPv6Route("2001:db9::", 32, "2001:db8::1", "", 3)}) +
                 red_vrf,
             {kIPv6},
             "l3 7 ipv6 address 2001:db8::1/64 and static route 2001:db9::/32 next-hop 2001:db8::1 "
             "cannot have address conflict."},
            {"only IPv4 when both families were read",
             Interfaces(kL3Seven) + Routes({IPv6Route("2001:db9::", 32, "2001:db8::1", "", 3)}) +
                 red_vrf,
             {kIPv6, kIPv4},
             ""},
            {"nothing read, nothing compared",
             Interfaces(kL3Seven) + Routes({IPv4Route("20.0.0.0", 8, "10.0.0.1", "", 3)}) + red_vrf,
             {},
             ""},
            {"management interfaces before layer-3 interfaces",
             Interfaces(kL3Seven + Mgmt("0", MgmtIPv4("10.0.0.1/24") + Vrf("red"))) +
                 Routes({IPv4Route("20.0.0.0", 8, "10.0.0.1", "", 3)}) + red_vrf,
             {kIPv4},
             "mgmt 0 ipv4 address 10.0.0.1/24 and static route 20.0.0.0/8 next-hop 10.0.0.1 cannot "
             "have address conflict."},
        },
        &ValidateConfig::ValidateStaticRouteNextHop);
}

TEST(ValidateStaticRouteLimit, IPv6RoutesCostTwoUnitsOfOneThousand) {
    struct Case {
        unsigned ipv4;
        unsigned ipv6;
        bool accepted;
    };
    const Case cases[] = {
        {1000, 0, true}, {1001, 0, false}, {0, 500, true},
        {0, 501, false}, {998, 1, true},   {999, 1, false},
    };
    for (const Case& c : cases) {
        plugin_test::HostLog log;
        Candidate candidate(plugin_test::ManyRoutes(c.ipv4, c.ipv6));
        candidate.config().static_route_config.ReadConfigIfNeeded(kIPv4);
        ValidateConfig checks;
        const int32_t result = checks.ValidateStaticRouteLimit(candidate.config());
        const std::string counts = std::to_string(c.ipv4) + "+" + std::to_string(c.ipv6);
        if (c.accepted) {
            EXPECT_EQ(result, 0) << counts;
            EXPECT_EQ(checks.error(), "") << counts;
            EXPECT_TRUE(log.DebugLines().empty()) << counts;
            continue;
        }
        EXPECT_EQ(result, -1) << counts;
        EXPECT_EQ(checks.error(), "The maximum number of available static routes was exceeded.");
        EXPECT_EQ(
            log.DebugLines(),
            std::vector<std::string>{
                "The maximum number of available static routes was exceeded! IPv4 static "
                "routes = " +
                std::to_string(c.ipv4) + "; IPv6 static routes = " + std::to_string(c.ipv6) + ";"});
    }
}

TEST(ValidateStaticRoute, RunsBothHalvesAndTheLimitTextWins) {
    plugin_test::HostLog log;
    std::vector<plugin_test::RouteRow> rows;
    for (unsigned i = 0; i < 1001; ++i) {
        rows.push_back(
            IPv4Route("11." + std::to_string(i / 256) + "." + std::to_string(i % 256) + ".0", 24,
                      "10.0.0.1"));
    }
    Candidate over_limit(Interfaces(L3("7", L3IPv4("10.0.0.1/24"))) + Routes(rows));
    ReadAll(over_limit.config(), {kIPv4});
    ValidateConfig checks;
    EXPECT_EQ(checks.ValidateStaticRoute(over_limit.config()), -1);
    EXPECT_EQ(checks.error(), "The maximum number of available static routes was exceeded.");

    rows.resize(3);
    Candidate conflict_only(Interfaces(L3("7", L3IPv4("10.0.0.1/24"))) + Routes(rows));
    ReadAll(conflict_only.config(), {kIPv4});
    ValidateConfig next_hop_checks;
    EXPECT_EQ(next_hop_checks.ValidateStaticRoute(conflict_only.config()), -1);
    EXPECT_EQ(next_hop_checks.error(),
              "l3 7 ipv4 address 10.0.0.1/24 and static route 11.0.0.0/24 next-hop 10.0.0.1 cannot "
              "have address conflict.");
}

TEST(ValidateStaticRouteOutputIntf, InterfaceWithRoutesKeepsItsLowerLayer) {
    ExpectVerdicts(
        {
            {"IPv4 route through an interface without lower layer",
             Interfaces(L3("7") + L3("8", Vlan(8))) +
                 Routes({IPv4Route("20.0.0.0", 8, "10.0.0.1", "l3-7")}),
             {kIPv4, kIPv6},
             "l3 7 is being used by a static route. Lower-layer-if cannot be removed from this "
             "interface"},
            {"IPv6 route",
             Interfaces(L3("7")) + Routes({IPv6Route("2001:db9::", 32, "fe80::1", "l3-7")}),
             {kIPv4, kIPv6},
             "l3 7 is being used by a static route. Lower-layer-if cannot be removed from this "
             "interface"},
            {"the interface keeps its lower layer",
             Interfaces(L3("7", Vlan(7))) + Routes({IPv4Route("20.0.0.0", 8, "10.0.0.1", "l3-7")}),
             {kIPv4, kIPv6},
             ""},
            {"routes through other interfaces",
             Interfaces(L3("7") + L3("8", Vlan(8))) +
                 Routes({IPv4Route("20.0.0.0", 8, "10.0.0.1", "l3-8")}),
             {kIPv4, kIPv6},
             ""},
        },
        &ValidateConfig::ValidateStaticRouteOutputIntf);
}

TEST(InterfaceMatchStaticRouteOutputIntf, NamesMatchWholeAndOnlyWithoutLowerLayer) {
    StaticRouteList routes;
    for (const char* output : {"l3 70", "loopback 1", "mgmt 0", "l3 7"}) {
        routes.push_back(std::make_shared<StaticRouteIPv4>(
            output, "global", plugin_test::V4("20.0.0.0/8"), plugin_test::Addr4("10.0.0.1")));
    }
    struct Case {
        plugin_test::InterfaceSpec intf;
        int32_t result;
    };
    const Case cases[] = {
        {{"loopback 1"}, 1}, {{"mgmt 0"}, 1}, {{"l3 7"}, 1}, {{"l3 7", "global", {}, {}, 7}, 0},
        {{"l3 8"}, 0},       {{"l3 7 "}, 0},
    };
    for (const Case& c : cases) {
        ValidateConfig checks;
        EXPECT_EQ(
            checks.InterfaceMatchStaticRouteOutputIntf(plugin_test::MakeInterface(c.intf), routes),
            c.result)
            << c.intf.name;
        EXPECT_EQ(checks.error().empty(), c.result == 0) << c.intf.name;
    }
}

}  // namespace
