// Interface address checks on hand-built snapshots: which violation is
// reported, and in which words, when several are present.
#include "ip_app_valid/confd_api.h"

#include <gtest/gtest.h>

#include <vector>

#include "ip_app_valid/validate_config.h"
#include "snapshot.h"

namespace {

using ip_application::config_valid::Config;
using ip_application::config_valid::InterfaceType;
using ip_application::config_valid::ValidateConfig;
using plugin_test::InterfaceSpec;
using plugin_test::MakeInterface;

struct Kinds {
    std::vector<InterfaceSpec> l3 = {};
    std::vector<InterfaceSpec> lo = {};
    std::vector<InterfaceSpec> mgmt = {};
};

std::unique_ptr<Config> Snapshot(const Kinds& kinds) {
    auto config = plugin_test::EmptySnapshot();
    for (const InterfaceSpec& spec : kinds.l3) {
        config->l3_config.MergeConfigAndInsert(MakeInterface(spec));
    }
    for (const InterfaceSpec& spec : kinds.lo) {
        config->lo_config.MergeConfigAndInsert(MakeInterface(spec));
    }
    for (const InterfaceSpec& spec : kinds.mgmt) {
        config->mgmt_config.MergeConfigAndInsert(MakeInterface(spec));
    }
    return config;
}

struct Case {
    const char* what;
    Kinds kinds;
    InterfaceType validated;
    const char* error;  // "" when accepted
};

void ExpectVerdicts(const std::vector<Case>& cases,
                    int32_t (ValidateConfig::*validate)(const Config&, InterfaceType)) {
    for (const Case& c : cases) {
        const auto config = Snapshot(c.kinds);
        ValidateConfig checks;
        const int32_t result = (checks.*validate)(*config, c.validated);
        EXPECT_EQ(result, *c.error == '\0' ? 0 : -1) << c.what;
        EXPECT_EQ(checks.error(), c.error) << c.what;
    }
}

TEST(ValidateInterfaceIPv4, AddressRules) {
    ExpectVerdicts(
        {
            {"network address",
             {{{"l3 1", "global", {"10.0.0.0/24"}}}},
             InterfaceType::L3,
             "l3 1 ipv4 address 10.0.0.0/24 cannot be configured as network address."},
            {"broadcast address",
             {{{"l3 1", "global", {"10.0.0.1/24", "10.0.1.255/24"}}}},
             InterfaceType::L3,
             "l3 1 ipv4 address 10.0.1.255/24 cannot be configured as broadcast address."},
            {"/31 and /32 are exempt",
             {{{"l3 1", "global", {"10.0.0.0/31", "10.0.0.3/31", "10.0.0.4/32", "10.0.0.255/32"}}}},
             InterfaceType::L3,
             ""},
            {"/30 is not exempt",
             {{{"l3 1", "global", {"10.0.0.3/30"}}}},
             InterfaceType::L3,
             "l3 1 ipv4 address 10.0.0.3/30 cannot be configured as broadcast address."},
            {"duplicate by host part only",
             {{{"l3 1", "global", {"10.0.0.1/24", "10.0.0.1/16"}}}},
             InterfaceType::L3,
             "l3 1 has duplicated IPv4 address 10.0.0.1"},
            {"two addresses of one subnet on one interface",
             {{{"l3 1", "global", {"10.0.0.1/24", "10.0.0.2/24"}}}},
             InterfaceType::L3,
             ""},
            {"loopback addresses follow the same rules",
             {{}, {{"loopback 1", "global", {"1.1.1.1/32", "1.1.1.0/24"}}}},
             InterfaceType::Lo,
             "loopback 1 ipv4 address 1.1.1.0/24 cannot be configured as network address."},
            {"no interfaces, no addresses", {{{"l3 1"}}, {}, {}}, InterfaceType::Mgmt, ""},
            {"no reader for the kind",
             {{{"l3 1", "global", {"10.0.0.0/24"}}}},
             InterfaceType::Unknown,
             "invalid interface being handled by IP-App validation"},
        },
        &ValidateConfig::ValidateInterfaceIPv4);
}

TEST(ValidateInterfaceIPv4, OverlapIsScopedByVrf) {
    auto pair = [](const char* vrf1, const char* vrf2) {
        return Kinds{{{"l3 1", vrf1, {"10.0.0.1/24"}}, {"l3 2", vrf2, {"10.0.0.2/16"}}}};
    };
    ExpectVerdicts(
        {
            {"global and mgmt share one space", pair("global", "mgmt"), InterfaceType::L3,
             "l3 1 vrf global ipv4 address 10.0.0.1/24 overlaps with l3 2 vrf mgmt ipv4 address "
             "10.0.0.2/16."},
            {"mgmt and mgmt", pair("mgmt", "mgmt"), InterfaceType::L3,
             "l3 1 vrf mgmt ipv4 address 10.0.0.1/24 overlaps with l3 2 vrf mgmt ipv4 address "
             "10.0.0.2/16."},
            {"red and global", pair("red", "global"), InterfaceType::L3, ""},
            {"red and blue", pair("red", "blue"), InterfaceType::L3, ""},
            {"red and red", pair("red", "red"), InterfaceType::L3,
             "l3 1 vrf red ipv4 address 10.0.0.1/24 overlaps with l3 2 vrf red ipv4 address "
             "10.0.0.2/16."},
            {"unreadable VRF and global", pair("", "global"), InterfaceType::L3, ""},
            {"unreadable VRF and mgmt", pair("mgmt", ""), InterfaceType::L3, ""},
            {"two unreadable VRFs", pair("", ""), InterfaceType::L3,
             "l3 1 vrf  ipv4 address 10.0.0.1/24 overlaps with l3 2 vrf  ipv4 address "
             "10.0.0.2/16."},
            {"disjoint prefixes",
             Kinds{{{"l3 1", "red", {"10.0.0.1/16"}}, {"l3 2", "red", {"10.1.0.1/16"}}}},
             InterfaceType::L3, ""},
        },
        &ValidateConfig::ValidateInterfaceIPv4);
}

TEST(ValidateInterfaceIPv4, FirstViolationInIterationOrderIsReported) {
    ExpectVerdicts(
        {
            {"an interface's pairs are tested before the next interface's validity",
             {{{"l3 1", "global", {"10.0.0.1/24"}},
               {"l3 2", "global", {"10.0.0.0/24"}},
               {"l3 3", "global", {"10.0.0.9/8"}}}},
             InterfaceType::L3,
             "l3 1 vrf global ipv4 address 10.0.0.1/24 overlaps with l3 2 vrf global ipv4 address "
             "10.0.0.0/24."},
            {"validity before duplicates of one interface",
             {{{"l3 1", "global", {"10.0.0.5/24", "10.0.0.5/16", "10.0.0.255/24"}}}},
             InterfaceType::L3,
             "l3 1 ipv4 address 10.0.0.255/24 cannot be configured as broadcast address."},
            {"pairs in address order of the earlier interface",
             {{{"l3 1", "global", {"10.1.0.1/24", "10.2.0.1/24"}},
               {"l3 2", "global", {"10.2.0.2/16", "10.1.0.2/16"}}}},
             InterfaceType::L3,
             "l3 1 vrf global ipv4 address 10.1.0.1/24 overlaps with l3 2 vrf global ipv4 address "
             "10.1.0.2/16."},
            {"other kinds only once the whole kind is clean",
             {{{"l3 1", "global", {"192.168.0.1/24"}}, {"l3 2", "global", {"10.0.0.255/24"}}},
              {},
              {{"mgmt 0", "mgmt", {"192.168.0.2/24"}}}},
             InterfaceType::L3,
             "l3 2 ipv4 address 10.0.0.255/24 cannot be configured as broadcast address."},
            {"the validated kind leads the message (l3)",
             {{{"l3 1", "global", {"192.168.0.1/24"}}},
              {},
              {{"mgmt 0", "mgmt", {"192.168.0.2/24"}}}},
             InterfaceType::L3,
             "l3 1 vrf global ipv4 address 192.168.0.1/24 overlaps with mgmt 0 vrf mgmt ipv4 "
             "address 192.168.0.2/24."},
            {"the validated kind leads the message (mgmt)",
             {{{"l3 1", "global", {"192.168.0.1/24"}}},
              {},
              {{"mgmt 0", "mgmt", {"192.168.0.2/24"}}}},
             InterfaceType::Mgmt,
             "mgmt 0 vrf mgmt ipv4 address 192.168.0.2/24 overlaps with l3 1 vrf global ipv4 "
             "address 192.168.0.1/24."},
            {"other kinds in reader order: management before layer-3",
             {{{"l3 1", "global", {"172.16.0.1/16"}}},
              {{"loopback 1", "global", {"172.16.1.1/32", "192.168.0.9/32"}}},
              {{"mgmt 0", "global", {"192.168.0.2/24"}}}},
             InterfaceType::Lo,
             "loopback 1 vrf global ipv4 address 192.168.0.9/32 overlaps with mgmt 0 vrf global "
             "ipv4 address 192.168.0.2/24."},
            {"other kind's interfaces outside, own interfaces inside",
             {{{"l3 1", "global", {"10.1.0.1/16"}}, {"l3 2", "global", {"10.2.0.1/16"}}},
              {{"loopback 1", "global", {"10.2.0.9/32"}},
               {"loopback 2", "global", {"10.1.0.9/32"}}}},
             InterfaceType::Lo,
             "loopback 2 vrf global ipv4 address 10.1.0.9/32 overlaps with l3 1 vrf global ipv4 "
             "address 10.1.0.1/16."},
        },
        &ValidateConfig::ValidateInterfaceIPv4);
}

TEST(ValidateInterfaceIPv6, DuplicatesAndOverlapAcrossVrfs) {
    ExpectVerdicts(
        {
            {"overlap in different VRFs",
             {{{"l3 1", "red", {}, {"2001:db8::1/64"}}, {"l3 2", "blue", {}, {"2001:db8::2/48"}}}},
             InterfaceType::L3,
             "l3 1 ipv6 address 2001:db8::1/64 overlaps with l3 2 ipv6 address 2001:db8::2/48."},
            {"duplicate by host part only",
             {{{"l3 1", "red", {}, {"2001:db8::1/64", "2001:db8:1::1/64", "2001:db8::1/56"}}}},
             InterfaceType::L3,
             "l3 1 has duplicated IPv6 address 2001:db8::1"},
            {"no validity rule for IPv6",
             {{{"l3 1", "red", {"10.0.0.0/24"}, {"2001:db8::/64"}}}},
             InterfaceType::L3,
             ""},
            {"IPv4 lists are not looked at",
             {{{"l3 1", "red", {"10.0.0.1/24"}}, {"l3 2", "red", {"10.0.0.1/24"}}}},
             InterfaceType::L3,
             ""},
            {"overlap with another kind, own interface first",
             {{{"l3 1", "global", {}, {"2001:db8::1/64"}}},
              {},
              {{"mgmt 0", "mgmt", {}, {"2001:db8::2/64"}}}},
             InterfaceType::Mgmt,
             "mgmt 0 ipv6 address 2001:db8::2/64 overlaps with l3 1 ipv6 address 2001:db8::1/64."},
            {"no reader for the kind",
             {},
             InterfaceType::Unknown,
             "invalid interface being handled by IP-App validation"},
        },
        &ValidateConfig::ValidateInterfaceIPv6);
}

TEST(ValidateConfigError, AFailingCheckReplacesAnEarlierText) {
    const auto config = Snapshot({{{"l3 1", "global", {"10.0.0.0/24"}}}});
    ValidateConfig checks;
    EXPECT_EQ(checks.ValidateInterfaceIPv4(*config, InterfaceType::Unknown), -1);
    EXPECT_EQ(checks.ValidateInterfaceIPv4(*config, InterfaceType::Mgmt), 0);
    EXPECT_EQ(checks.error(), "invalid interface being handled by IP-App validation")
        << "a passing check leaves the text alone";
    EXPECT_EQ(checks.ValidateInterfaceIPv4(*config, InterfaceType::L3), -1);
    EXPECT_EQ(checks.error(),
              "l3 1 ipv4 address 10.0.0.0/24 cannot be configured as network address.");
}

}  // namespace
