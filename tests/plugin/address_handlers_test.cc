// The address and route handlers read exactly their readers and families,
// refuse an unknown interface kind before reading anything, and hand a
// failing check's text to the transaction.
#include "ip_app_valid/confd_api.h"

#include <gtest/gtest.h>
#include <ipapp.h>

#include <string>
#include <vector>

#include "ip_app_valid.h"
#include "ip_app_valid/config.h"
#include "snapshot.h"

namespace {

using ip_application::config_valid::Config;
using ip_application::config_valid::ConfigAddrFamily;
using ip_application::config_valid::GenericConfig;

// Which families each reader has read, as "4", "6", "46" or "".
struct ReadFamilies {
    std::string ospfv2, static_route, l3, lo, mgmt;
    bool operator==(const ReadFamilies& other) const {
        return ospfv2 == other.ospfv2 && static_route == other.static_route && l3 == other.l3 &&
               lo == other.lo && mgmt == other.mgmt;
    }
};

std::ostream& operator<<(std::ostream& out, const ReadFamilies& read) {
    return out << "ospfv2 '" << read.ospfv2 << "' static '" << read.static_route << "' l3 '"
               << read.l3 << "' lo '" << read.lo << "' mgmt '" << read.mgmt << "'";
}

std::string Families(const GenericConfig& reader) {
    return std::string(reader.ipv4_read() ? "4" : "") + (reader.ipv6_read() ? "6" : "");
}

ReadFamilies FamiliesRead(const Config& config) {
    return {Families(config.ospfv2_config), Families(config.static_route_config),
            Families(config.l3_config), Families(config.lo_config), Families(config.mgmt_config)};
}

// A callback on the l3 list, with no MAAPI socket behind it: every read
// finds an empty configuration, which every check accepts.
class AddressHandlerTest : public ::testing::Test {
  protected:
    void SetUp() override {
        keypath_.len = 3;
        CONFD_SET_XMLTAG(&keypath_.v[0][0], ipapp_l3, 0);
        CONFD_SET_XMLTAG(&newval_, ipapp_l3, 0);
    }
    void TearDown() override { confd_trans_clear_err(&tctx_); }

    int32_t Call(ValidationHandler* handler, Config& config) {
        config.Bind(-1, &tctx_);
        return handler(-1, &tctx_, &keypath_, &newval_, config);
    }

    confd_trans_ctx tctx_{};
    confd_hkeypath_t keypath_{};
    confd_value_t newval_{};
};

TEST_F(AddressHandlerTest, EachHandlerReadsItsReadersAndFamilies) {
    struct Case {
        const char* handler_name;
        ValidationHandler* handler;
        ReadFamilies read;
    };
    const Case cases[] = {
        {"validate_ipv4_addr", validate_ipv4_addr, {"", "4", "4", "4", "4"}},
        {"validate_ipv6_addr", validate_ipv6_addr, {"", "6", "6", "6", "6"}},
        {"validate_ipv4_addr_cross_prot", validate_ipv4_addr_cross_prot, {"4", "", "4", "4", ""}},
        {"validate_ipv4_addr_route", validate_ipv4_addr_route, {"", "4", "4", "4", "4"}},
        {"validate_ipv6_addr_route", validate_ipv6_addr_route, {"", "6", "6", "6", "6"}},
        {"validate_route_l3_intf", validate_route_l3_intf, {"", "46", "4", "", ""}},
    };
    for (const Case& c : cases) {
        Config config;
        EXPECT_EQ(Call(c.handler, config), 0) << c.handler_name;
        EXPECT_EQ(FamiliesRead(config), c.read) << c.handler_name;
        EXPECT_EQ(tctx_.error.str, nullptr) << c.handler_name << ": a pass sets no text";
    }
}

TEST_F(AddressHandlerTest, UnknownInterfaceKindIsRefusedBeforeAnyRead) {
    for (uint32_t tag : {static_cast<uint32_t>(ipapp_vrf), 0u}) {
        CONFD_SET_XMLTAG(&keypath_.v[0][0], tag, 0);
        for (ValidationHandler* handler : {validate_ipv4_addr, validate_ipv6_addr}) {
            Config config;
            EXPECT_EQ(Call(handler, config), -1);
            EXPECT_STREQ(tctx_.error.str, "invalid interface being handled by IP-App validation");
            EXPECT_EQ(FamiliesRead(config), ReadFamilies{});
            confd_trans_clear_err(&tctx_);
        }
    }
}

TEST_F(AddressHandlerTest, EarlierSnapshotIsCheckedWithoutReadingAgain) {
    // The IPv4 route handler after an IPv6 callback: IPv6 data stays, the
    // IPv4 family is read for the first time.
    Config config;
    ASSERT_EQ(Call(validate_ipv6_addr_route, config), 0);
    config.l3_config.MergeConfigAndInsert(plugin_test::ParseInterface("l3 1|global|10.0.0.1/24"));
    EXPECT_EQ(Call(validate_ipv4_addr_route, config), 0);
    EXPECT_EQ(FamiliesRead(config), (ReadFamilies{"", "46", "46", "46", "46"}));
    EXPECT_EQ(config.l3_config.interfaces().size(), 1u);
}

}  // namespace
