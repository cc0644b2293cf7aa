// A check asked for a kind that has no reader refuses it. The handlers
// never ask for one: they refuse a keypath of no interface kind before
// anything is read; that, which readers and families they bring up to date,
// and their checks' texts and orders are proven end to end
// (tests/scenarios).
#include "ip_app_valid/confd_api.h"

#include <gtest/gtest.h>

#include "ip_app_valid/config.h"
#include "ip_app_valid/validate_config.h"

namespace {

using ip_application::config_valid::Config;
using ip_application::config_valid::InterfaceType;
using ip_application::config_valid::ValidateConfig;

constexpr const char* kInvalidInterface = "invalid interface being handled by IP-App validation";

TEST(InterfaceChecks, KindWithoutAReaderIsRefused) {
    const Config config;
    ValidateConfig checks;
    EXPECT_EQ(checks.ValidateInterfaceIPv4(config, InterfaceType::Unknown), -1);
    EXPECT_EQ(checks.error(), kInvalidInterface);
    ValidateConfig ipv6_checks;
    EXPECT_EQ(ipv6_checks.ValidateInterfaceIPv6(config, InterfaceType::Unknown), -1);
    EXPECT_EQ(ipv6_checks.error(), kInvalidInterface);
}

}  // namespace
