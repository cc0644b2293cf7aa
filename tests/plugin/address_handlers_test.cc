// The address and route handlers read exactly their readers and families,
// and an interface kind without a reader is refused before anything is read.
// Their checks' texts and orders are proven end to end (tests/scenarios).
#include "ip_app_valid/confd_api.h"

#include <gtest/gtest.h>
#include <ipapp.h>

#include <string>

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

// The families each reader has read, "4", "6", "46" or "-", in the order
// OSPFv2, static routes, l3, loopback, mgmt.
std::string FamiliesRead(const Config& config) {
    std::string read;
    for (const GenericConfig* reader :
         {static_cast<const GenericConfig*>(&config.ospfv2_config),
          static_cast<const GenericConfig*>(&config.static_route_config),
          static_cast<const GenericConfig*>(&config.l3_config),
          static_cast<const GenericConfig*>(&config.lo_config),
          static_cast<const GenericConfig*>(&config.mgmt_config)}) {
        const std::string families =
            std::string(reader->ipv4_read() ? "4" : "") + (reader->ipv6_read() ? "6" : "");
        read += (read.empty() ? "" : " ") + (families.empty() ? "-" : families);
    }
    return read;
}

TEST(AddressHandlers, EachReadsItsReadersAndFamilies) {
    struct Case {
        const char* name;
        ValidationHandler* handler;
        u_int32_t list_tag;
        const char* read;
        const char* error;
    };
    const Case cases[] = {
        {"validate_ipv4_addr", validate_ipv4_addr, ipapp_l3, "- 4 4 4 4", ""},
        {"validate_ipv6_addr", validate_ipv6_addr, ipapp_mgmt, "- 6 6 6 6", ""},
        {"validate_ipv4_addr_cross_prot", validate_ipv4_addr_cross_prot, ipapp_l3, "4 - 4 4 -", ""},
        {"validate_ipv4_addr_route", validate_ipv4_addr_route, 0, "- 4 4 4 4", ""},
        {"validate_ipv6_addr_route", validate_ipv6_addr_route, 0, "- 6 6 6 6", ""},
        {"validate_route_l3_intf", validate_route_l3_intf, ipapp_l3, "- 46 4 - -", ""},
        {"validate_ipv4_addr on vrf", validate_ipv4_addr, ipapp_vrf, "- - - - -",
         kInvalidInterface},
        {"validate_ipv6_addr on vrf", validate_ipv6_addr, ipapp_vrf, "- - - - -",
         kInvalidInterface},
    };
    for (const Case& c : cases) {
        plugin_test::DatastoreCall call("", "");
        EXPECT_EQ(call.Run(c.handler, plugin_test::ListKeypath(c.list_tag)), *c.error ? -1 : 0)
            << c.name;
        EXPECT_EQ(FamiliesRead(call.config()), c.read) << c.name;
        EXPECT_EQ(call.error_text(), c.error) << c.name;
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
