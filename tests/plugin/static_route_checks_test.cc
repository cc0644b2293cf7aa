// Static route checks over snapshots read from small configurations, for
// what the route reader's flags and counts decide, and the output interface
// rule on records a configuration file cannot produce.
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
using namespace plugin_test;

constexpr ConfigAddrFamily kIPv4 = ConfigAddrFamily::IPv4;
constexpr ConfigAddrFamily kIPv6 = ConfigAddrFamily::IPv6;
constexpr const char* kOverLimit = "The maximum number of available static routes was exceeded.";

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

TEST(ValidateStaticRouteNextHop, FamilyComesFromTheRouteReadersFlags) {
    const std::string conflicts =
        Interfaces(L3("7", L3IPv4("10.0.0.1/24") + IPv6({"2001:db8::1/64"}))) +
        Routes({IPv4Route("20.0.0.0", 8, "10.0.0.1"), IPv6Route("2001:db9::", 32, "2001:db8::1")});
    const std::string ipv6_conflict =
        "l3 7 ipv6 address 2001:db8::1/64 and static route 2001:db9::/32 next-hop 2001:db8::1 "
        "cannot have address conflict.";
    const std::pair<std::vector<ConfigAddrFamily>, std::string> cases[] = {
        {{}, ""},
        {{kIPv6}, ipv6_conflict},
        {{kIPv6, kIPv4},
         "l3 7 ipv4 address 10.0.0.1/24 and static route 20.0.0.0/8 next-hop 10.0.0.1 cannot "
         "have address conflict."},
    };
    for (const auto& [reads, error] : cases) {
        Candidate candidate(conflicts);
        ReadAll(candidate.config(), reads);
        ValidateConfig checks;
        EXPECT_EQ(checks.ValidateStaticRouteNextHop(candidate.config()), error.empty() ? 0 : -1);
        EXPECT_EQ(checks.error(), error);
    }
    // Both families read, only the IPv6 next hop conflicts: not reported.
    Candidate candidate(Interfaces(L3("7", IPv6({"2001:db8::1/64"}))) +
                        Routes({IPv6Route("2001:db9::", 32, "2001:db8::1")}));
    ReadAll(candidate.config(), {kIPv6, kIPv4});
    EXPECT_EQ(ValidateConfig().ValidateStaticRouteNextHop(candidate.config()), 0);
}

TEST(ValidateStaticRouteLimit, CountsRowsOfBothFamiliesWhateverWasRead) {
    const std::pair<unsigned, unsigned> cases[] = {{998, 1}, {999, 1}, {1, 500}};
    for (const auto& [ipv4, ipv6] : cases) {
        HostLog log;
        Candidate candidate(ManyRoutes(ipv4, ipv6));
        candidate.config().static_route_config.ReadConfigIfNeeded(kIPv6);
        ValidateConfig checks;
        const bool over = ipv4 + 2 * ipv6 > 1000;
        EXPECT_EQ(checks.ValidateStaticRouteLimit(candidate.config()), over ? -1 : 0);
        EXPECT_EQ(checks.error(), over ? kOverLimit : "");
        const std::vector<std::string> logged = {
            "The maximum number of available static routes was exceeded! IPv4 static routes = " +
            std::to_string(ipv4) + "; IPv6 static routes = " + std::to_string(ipv6) + ";"};
        EXPECT_EQ(log.DebugLines(), over ? logged : std::vector<std::string>{});
    }
}

TEST(ValidateStaticRoute, RunsBothHalvesAndTheLimitTextWins) {
    HostLog log;
    Candidate candidate(Interfaces(L3("7", L3IPv4("10.0.0.1/24"))) + ManyRoutes(1001, 0));
    ReadAll(candidate.config(), {kIPv4});
    ValidateConfig checks;
    EXPECT_EQ(checks.ValidateStaticRouteNextHop(candidate.config()), -1);
    EXPECT_EQ(checks.ValidateStaticRoute(candidate.config()), -1);
    EXPECT_EQ(checks.error(), kOverLimit);
}

TEST(InterfaceMatchStaticRouteOutputIntf, NamesMatchWholeAndOnlyWithoutLowerLayer) {
    StaticRouteList routes;
    for (const char* output : {"l3 70", "loopback 1", "mgmt 0", "l3 7"}) {
        routes.push_back(std::make_shared<StaticRouteIPv4>(output, "global", V4("20.0.0.0/8"),
                                                           Addr4("10.0.0.1")));
    }
    // Loopback and management records never have a lower layer.
    for (const auto& [record, result] :
         std::vector<std::pair<std::string, int32_t>>{{"loopback 1", 1},
                                                      {"mgmt 0", 1},
                                                      {"l3 7", 1},
                                                      {"l3 7|global|||7", 0},
                                                      {"l3 8", 0},
                                                      {"l3 7 ", 0}}) {
        ValidateConfig checks;
        EXPECT_EQ(checks.InterfaceMatchStaticRouteOutputIntf(ParseInterface(record), routes),
                  result)
            << record;
        EXPECT_EQ(checks.error().empty(), result == 0) << record;
    }
}

}  // namespace
