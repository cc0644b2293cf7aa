// The surface the host sees: the library name, context creation and
// destruction, and validate's refusals, binding and dispatch.
#include "ip_app_valid/confd_api.h"

#include <gtest/gtest.h>
#include <ipapp.h>
#include <velconfd_host.h>

#include <cstring>
#include <string>

#include "ip_app_valid.h"
#include "snapshot.h"
#include "validation_point_table.h"

namespace {

using ip_application::config_valid::Config;
using ip_application::config_valid::ConfigAddrFamily;
using ip_application::config_valid::FindValidationHandler;
using ip_application::config_valid::GenericConfig;

TEST(ValidationPointTable, EveryPointSelectsItsHandlerByPrefix) {
    struct Case {
        const char* point_name;
        ValidationHandler* handler;
    };
    const Case cases[] = {
        {"intf_l3_name_validation", validate_intf_l3_name},
        {"intf_vrf_validation", validate_intf_vrf},
        {"ipv4_addr_validation", validate_ipv4_addr},
        {"ipv4_addr_prot_cross_validation", validate_ipv4_addr_cross_prot},
        {"ipv4_addr_route_validation", validate_ipv4_addr_route},
        {"ipv6_addr_validation", validate_ipv6_addr},
        {"ipv6_addr_route_validation", validate_ipv6_addr_route},
        {"validate_ipv6_nd_ra_interval", validate_ipv6_nd_ra_interval},
        {"validate_ipv6_nd_ra_lifetime", validate_ipv6_nd_ra_lifetime},
        {"static_route_l3_intf_validation", validate_route_l3_intf},
        {"lower_layer_prot_cross_validation", validate_lower_layer_cross_prot},
        // Further characters after a point's name are ignored.
        {"ipv4_addr_validation_of_l3", validate_ipv4_addr},
        {"lower_layer_prot_cross_validation2", validate_lower_layer_cross_prot},
        // A proper beginning of a name, an empty name and strangers match nothing.
        {"ipv4_addr", nullptr},
        {"ipv4_addr_validatio", nullptr},
        {"", nullptr},
        {"IPV4_ADDR_VALIDATION", nullptr},
        {"validate_ipv6_nd_ra", nullptr},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(FindValidationHandler(c.point_name), c.handler) << "'" << c.point_name << "'";
    }
}

TEST(GetValidationPoint, WritesTheLibraryNameCutToTheBuffer) {
    // Size 0 writes nothing at all.
    const std::pair<unsigned, std::string> cases[] = {
        {64, "ip_app_validation"},
        {18, "ip_app_validation"},
        {17, "ip_app_validatio"},
        {10, "ip_app_va"},
        {1, ""},
        {0, ""},
    };
    for (const auto& [size, name] : cases) {
        char buffer[32];
        std::memset(buffer, 'x', sizeof buffer);
        EXPECT_EQ(get_validation_point(buffer, size), 0);
        std::string expected(sizeof buffer, 'x');
        if (size != 0) {
            expected.replace(0, name.size() + 1, name + '\0');
        }
        EXPECT_EQ(std::string(buffer, sizeof buffer), expected) << "size " << size;
    }
}

TEST(LibInit, StoresAFreshContextWithTheInterfaceReadersInOrder) {
    void* slot = nullptr;
    ASSERT_EQ(lib_init(&slot), 0);
    ASSERT_NE(slot, nullptr);
    auto* config = static_cast<Config*>(slot);
    const std::vector<ip_application::config_valid::InterfaceConfig*> expected = {
        &config->mgmt_config, &config->l3_config, &config->lo_config};
    EXPECT_EQ(config->interface_configs, expected);
    EXPECT_EQ(lib_finish(&slot), 0);
    EXPECT_EQ(slot, config) << "lib_finish does not clear the slot";
}

TEST(LibFinish, NullContextIsNothingToDestroy) {
    void* slot = nullptr;
    EXPECT_EQ(lib_finish(&slot), 0);
    EXPECT_EQ(slot, nullptr);
    EXPECT_EQ(lib_finish(nullptr), 0);
    EXPECT_EQ(lib_init(nullptr), -1);
}

// A host that serves one transaction with the plug-in's context registered.
class ValidateTest : public ::testing::Test {
  protected:
    static constexpr int kMaapiSocket = 4711;

    void SetUp() override {
        ASSERT_EQ(lib_init(&context_), 0);
        host_ = velconfd_create(nullptr, kMaapiSocket);
        ASSERT_EQ(velconfd_set_lib_context(host_, "ip_app_validation", context_), 0);
        tctx_.t_opaque = host_;
        keypath_.len = 3;
        CONFD_SET_XMLTAG(&keypath_.v[0][0], ipapp_l3, 0);
        CONFD_SET_XMLTAG(&newval_, ipapp_l3, 0);
    }

    void TearDown() override {
        confd_trans_clear_err(&tctx_);
        velconfd_destroy(host_);
        lib_finish(&context_);
    }

    int Validate(const char* point_name) {
        tctx_.vcb_opaque = const_cast<char*>(point_name);
        return validate(&tctx_, &keypath_, &newval_);
    }

    Config& config() { return *static_cast<Config*>(context_); }
    const char* Error() const { return tctx_.error.str; }

    void* context_ = nullptr;
    velconfd_t* host_ = nullptr;
    confd_trans_ctx tctx_{};
    confd_hkeypath_t keypath_{};
    confd_value_t newval_{};
};

TEST_F(ValidateTest, MissingArgumentsAreRefusedSilently) {
    tctx_.vcb_opaque = const_cast<char*>("ipv4_addr_validation");
    EXPECT_EQ(validate(nullptr, &keypath_, &newval_), -1);
    EXPECT_EQ(validate(&tctx_, nullptr, &newval_), -1);
    EXPECT_EQ(validate(&tctx_, &keypath_, nullptr), -1);
    tctx_.t_opaque = nullptr;  // no host state: no MAAPI socket
    EXPECT_EQ(validate(&tctx_, &keypath_, &newval_), -1);
    EXPECT_EQ(Error(), nullptr);
    EXPECT_EQ(config().l3_config.maapi_sock(), -1) << "nothing was bound";
}

TEST_F(ValidateTest, NoLibraryContextIsReportedToTheOperator) {
    velconfd_set_lib_context(host_, "ip_app_validation", nullptr);
    EXPECT_EQ(Validate("ipv4_addr_validation"), -1);
    EXPECT_STREQ(Error(), "Lib context is null!");
}

TEST_F(ValidateTest, UnknownPointIsRefusedSilentlyAfterBinding) {
    for (const char* name : {"", "ipv4_addr", "no_such_validation"}) {
        EXPECT_EQ(Validate(name), -1) << "'" << name << "'";
    }
    EXPECT_EQ(Error(), nullptr);
    EXPECT_EQ(config().l3_config.maapi_sock(), kMaapiSocket);
}

TEST_F(ValidateTest, BindsEveryReaderAndKeepsWhatWasRead) {
    config().lo_config.ReadConfigIfNeeded(ConfigAddrFamily::IPv6);
    config().l3_config.MergeConfigAndInsert(plugin_test::ParseInterface("l3 1|global|10.0.0.1/24"));

    EXPECT_EQ(Validate("ipv6_addr_validation"), 0);

    for (const GenericConfig* reader : {static_cast<GenericConfig*>(&config().ospfv2_config),
                                        static_cast<GenericConfig*>(&config().static_route_config),
                                        static_cast<GenericConfig*>(&config().l3_config),
                                        static_cast<GenericConfig*>(&config().lo_config),
                                        static_cast<GenericConfig*>(&config().mgmt_config)}) {
        EXPECT_EQ(reader->maapi_sock(), kMaapiSocket);
        EXPECT_EQ(reader->tctx(), &tctx_);
    }
    EXPECT_TRUE(config().lo_config.ipv6_read());
    EXPECT_FALSE(config().ospfv2_config.ipv6_read()) << "only the handler's readers read";
    ASSERT_EQ(config().l3_config.interfaces().size(), 1u);
}

TEST_F(ValidateTest, HandlerResultAndTextPassThrough) {
    CONFD_SET_XMLTAG(&keypath_.v[0][0], ipapp_vrf, 0);
    EXPECT_EQ(Validate("ipv4_addr_validation_suffix"), -1);
    EXPECT_STREQ(Error(), "invalid interface being handled by IP-App validation");
}

TEST_F(ValidateTest, PercentSignsReachTheOperatorUnexpanded) {
    config().l3_config.ReadConfigIfNeeded(ConfigAddrFamily::IPv4);
    config().l3_config.MergeConfigAndInsert(
        plugin_test::ParseInterface("l3 %s%n%d|global|10.0.0.0/24"));
    EXPECT_EQ(Validate("ipv4_addr_validation"), -1);
    EXPECT_STREQ(Error(),
                 "l3 %s%n%d ipv4 address 10.0.0.0/24 cannot be configured as network address.");
}

}  // namespace
