// Interface address checks on hand-built snapshots, for what a
// configuration file cannot produce (a missing reader, unreadable VRF
// names) and for the order in which conflicts are found.
#include "ip_app_valid/confd_api.h"

#include <gtest/gtest.h>

#include <vector>

#include "ip_app_valid/validate_config.h"
#include "snapshot.h"

namespace {

using ip_application::config_valid::Config;
using ip_application::config_valid::InterfaceType;
using ip_application::config_valid::ValidateConfig;

constexpr InterfaceType kL3 = InterfaceType::L3;
constexpr InterfaceType kLo = InterfaceType::Lo;
constexpr const char* kNoReader = "invalid interface being handled by IP-App validation";

struct Case {
    std::vector<std::string> interfaces;
    InterfaceType validated;
    std::string error;  // "" when accepted
};

void ExpectVerdicts(const std::vector<Case>& cases,
                    int32_t (ValidateConfig::*validate)(const Config&, InterfaceType)) {
    for (const Case& c : cases) {
        const auto config = plugin_test::SnapshotOf(c.interfaces);
        ValidateConfig checks;
        EXPECT_EQ((checks.*validate)(*config, c.validated), c.error.empty() ? 0 : -1) << c.error;
        EXPECT_EQ(checks.error(), c.error);
    }
}

TEST(ValidateInterfaces, OneTextPerRule) {
    ExpectVerdicts(
        {
            {{"l3 1|global|10.0.0.0/31,10.0.0.3/31,10.0.0.4/32,10.0.0.0/24"},
             kL3,
             "l3 1 ipv4 address 10.0.0.0/24 cannot be configured as network address."},
            {{"loopback 1|global|10.0.0.5/24,10.0.0.5/16,10.0.0.255/24"},
             kLo,
             "loopback 1 ipv4 address 10.0.0.255/24 cannot be configured as broadcast address."},
            {{"l3 1|global|10.0.0.5/24,10.0.0.5/16"},
             kL3,
             "l3 1 has duplicated IPv4 address 10.0.0.5"},
        },
        &ValidateConfig::ValidateInterfaceIPv4);
    ExpectVerdicts(
        {
            {{"l3 1|red||2001:db8::1/64,2001:db8:1::1/64,2001:db8::1/56"},
             kL3,
             "l3 1 has duplicated IPv6 address 2001:db8::1"},
            {{"l3 1|red|10.0.0.0/24|2001:db8::1/64", "mgmt 0|mgmt||2001:db8::2/48"},
             InterfaceType::Mgmt,
             "mgmt 0 ipv6 address 2001:db8::2/48 overlaps with l3 1 ipv6 address 2001:db8::1/64."},
        },
        &ValidateConfig::ValidateInterfaceIPv6);
}

TEST(ValidateInterfaceIPv4, UnreadableVrfNamesAreAVrfOfTheirOwn) {
    ExpectVerdicts(
        {
            {{"l3 1||10.0.0.1/24", "l3 2||10.0.0.2/16"},
             kL3,
             "l3 1 vrf  ipv4 address 10.0.0.1/24 overlaps with l3 2 vrf  ipv4 address "
             "10.0.0.2/16."},
            {{"l3 1||10.0.0.1/24", "l3 2|global|10.0.0.2/16"}, kL3, ""},
            {{"l3 1|mgmt|10.0.0.1/24", "l3 2||10.0.0.2/16"}, kL3, ""},
        },
        &ValidateConfig::ValidateInterfaceIPv4);
}

TEST(ValidateInterfaceIPv4, FirstConflictInIterationOrderIsReported) {
    ExpectVerdicts(
        {
            // Pairs in the address order of the earlier interface.
            {{"l3 1|global|10.1.0.1/24,10.2.0.1/24", "l3 2|global|10.2.0.2/16,10.1.0.2/16"},
             kL3,
             "l3 1 vrf global ipv4 address 10.1.0.1/24 overlaps with l3 2 vrf global ipv4 address "
             "10.1.0.2/16."},
            // The other kind's interfaces outside, the own ones inside.
            {{"l3 1|global|10.1.0.1/16", "l3 2|global|10.2.0.1/16", "loopback 1|global|10.2.0.9/32",
              "loopback 2|global|10.1.0.9/32"},
             kLo,
             "loopback 2 vrf global ipv4 address 10.1.0.9/32 overlaps with l3 1 vrf global ipv4 "
             "address 10.1.0.1/16."},
        },
        &ValidateConfig::ValidateInterfaceIPv4);
}

TEST(ValidateInterfaces, NoReaderForTheKind) {
    ExpectVerdicts({{{"l3 1|global|10.0.0.0/24"}, InterfaceType::Unknown, kNoReader}},
                   &ValidateConfig::ValidateInterfaceIPv4);
    ExpectVerdicts({{{}, InterfaceType::Unknown, kNoReader}},
                   &ValidateConfig::ValidateInterfaceIPv6);
}

TEST(ValidateConfigError, AFailingCheckReplacesAnEarlierText) {
    const auto config = plugin_test::SnapshotOf({"l3 1|global|10.0.0.0/24"});
    ValidateConfig checks;
    EXPECT_EQ(checks.ValidateInterfaceIPv4(*config, InterfaceType::Unknown), -1);
    EXPECT_EQ(checks.ValidateInterfaceIPv4(*config, InterfaceType::Mgmt), 0);
    EXPECT_EQ(checks.error(), kNoReader) << "a passing check leaves the text alone";
    EXPECT_EQ(checks.ValidateInterfaceIPv4(*config, kL3), -1);
    EXPECT_EQ(checks.error(),
              "l3 1 ipv4 address 10.0.0.0/24 cannot be configured as network address.");
}

}  // namespace
