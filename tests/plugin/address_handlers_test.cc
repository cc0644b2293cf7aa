// A keypath or check that names no interface kind is refused, by a handler
// before anything is read. Which readers and families the handlers
// bring up to date, and their checks' texts and orders, are proven end to
// end (tests/scenarios).
#include "ip_app_valid/confd_api.h"

#include <gtest/gtest.h>
#include <ipapp.h>

#include "datastore_call.h"
#include "ip_app_valid.h"
#include "ip_app_valid/config.h"
#include "ip_app_valid/validate_config.h"

namespace {

using ip_application::config_valid::Config;
using ip_application::config_valid::GenericConfig;
using ip_application::config_valid::InterfaceType;
using ip_application::config_valid::ValidateConfig;

constexpr const char* kInvalidInterface = "invalid interface being handled by IP-App validation";

TEST(AddressHandlers, KeypathOfNoInterfaceKindIsRefusedUnread) {
    for (ValidationHandler* handler : {validate_ipv4_addr, validate_ipv6_addr}) {
        plugin_test::DatastoreCall call("", "");
        EXPECT_EQ(call.Run(handler, plugin_test::ListKeypath(ipapp_vrf)), -1);
        EXPECT_EQ(call.error_text(), kInvalidInterface);
        const auto& config = call.config();
        for (const GenericConfig* reader :
             {static_cast<const GenericConfig*>(&config.static_route_config),
              static_cast<const GenericConfig*>(&config.l3_config),
              static_cast<const GenericConfig*>(&config.lo_config),
              static_cast<const GenericConfig*>(&config.mgmt_config)}) {
            EXPECT_FALSE(reader->ipv4_read() || reader->ipv6_read());
        }
    }
}

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
