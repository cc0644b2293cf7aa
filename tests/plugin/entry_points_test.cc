// The surface the host sees: the library name, context creation and
// destruction, and what validate refuses before any handler runs.
#include "ip_app_valid/confd_api.h"

#include <gtest/gtest.h>
#include <ipapp.h>
#include <ipapp_test_support/confd_fixture.h>
#include <velconfd_host.h>

#include <algorithm>
#include <cstring>
#include <set>
#include <string>

#include "datastore_call.h"
#include "ip_app_valid.h"
#include "validation_point_table.h"

namespace {

using ip_application::config_valid::Config;
using ip_application::config_valid::FindValidationHandler;
using ip_application::config_valid::kValidationPoints;

TEST(ValidationPointTable, PointsSelectTheirHandlersByPrefix) {
    // Every exact name selects its handler in the end-to-end cases.
    const std::pair<const char*, ValidationHandler*> cases[] = {
        {"ipv4_addr_validation_of_l3", validate_ipv4_addr},
        {"lower_layer_prot_cross_validation2", validate_lower_layer_cross_prot},
        {"ipv4_addr_validatio", nullptr},
        {"", nullptr},
        {"IPV4_ADDR_VALIDATION", nullptr},
        {"validate_ipv6_nd_ra", nullptr},
    };
    for (const auto& [point_name, handler] : cases) {
        EXPECT_EQ(FindValidationHandler(point_name), handler) << "'" << point_name << "'";
    }
}

TEST(ValidationPointTable, MatchesTheModelPointForPoint) {
    // Every point the model declares selects the handler its own row names,
    // and every row is a point of the model, so a renamed point or a row
    // nobody calls shows up here rather than as a refusal on a device.
    std::set<std::string> model_points;
    for (const confdstore::ValidationPoint& point :
         ipapp_test::project_schema().validation_points()) {
        model_points.insert(point.name);
        const auto row = std::find_if(kValidationPoints.begin(), kValidationPoints.end(),
                                      [&](const auto& entry) { return point.name == entry.name; });
        ASSERT_NE(row, kValidationPoints.end()) << point.name << " on " << point.node_path;
        EXPECT_EQ(FindValidationHandler(point.name.c_str()), row->handler) << point.name;
    }
    for (const auto& entry : kValidationPoints) {
        EXPECT_EQ(model_points.count(entry.name), 1U) << entry.name << " is on no node";
    }
}

TEST(GetValidationPoint, WritesTheLibraryNameCutToTheBuffer) {
    const std::pair<unsigned, std::string> cases[] = {
        {17, "ip_app_validatio"},
        {0, ""},
    };
    for (const auto& [size, name] : cases) {
        char buffer[32];
        std::memset(buffer, 'x', sizeof buffer);
        EXPECT_EQ(get_validation_point(buffer, size), 0);
        std::string expected(sizeof buffer, 'x');
        if (size != 0) {  // size 0 writes nothing at all
            expected.replace(0, name.size() + 1, name + '\0');
        }
        EXPECT_EQ(std::string(buffer, sizeof buffer), expected) << "size " << size;
    }
    EXPECT_EQ(get_validation_point(nullptr, 1), -1);
}

TEST(LibContext, CreatedByInitDestroyedByFinishNullIsNothingToDestroy) {
    EXPECT_EQ(lib_init(nullptr), -1);
    EXPECT_EQ(lib_finish(nullptr), 0);
    void* slot = nullptr;
    EXPECT_EQ(lib_finish(&slot), 0);
    ASSERT_EQ(lib_init(&slot), 0);
    ASSERT_NE(slot, nullptr);
    EXPECT_EQ(lib_finish(&slot), 0);
}

// validate's result and the transaction's error text after it.
using Answer = std::pair<int, std::string>;

TEST(Validate, RefusesWhatNoHandlerCanServe) {
    constexpr int kMaapiSocket = 4711;
    Config config;
    velconfd_t* host = velconfd_create(nullptr, kMaapiSocket);
    confd_trans_ctx tctx{};
    confd_hkeypath_t keypath = plugin_test::ListKeypath(ipapp_l3);
    confd_value_t newval = keypath.v[0][0];
    const auto call = [&](const char* point_name, void* context) {
        velconfd_set_lib_context(host, "ip_app_validation", context);
        tctx.vcb_opaque = const_cast<char*>(point_name);
        confd_trans_clear_err(&tctx);
        const int result = validate(&tctx, &keypath, &newval);
        return Answer{result, tctx.error.str != nullptr ? tctx.error.str : "(none)"};
    };
    tctx.t_opaque = host;
    EXPECT_EQ(call("ipv4_addr_validation", nullptr), (Answer{-1, "Lib context is null!"}));
    for (const char* unknown : {"", "ipv4_addr", static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(call(unknown, &config), (Answer{-1, "(none)"}));
    }
    EXPECT_EQ(config.mgmt_config.maapi_sock(), kMaapiSocket) << "bound before the dispatch";
    tctx.t_opaque = nullptr;  // no host state, so no MAAPI socket
    EXPECT_EQ(call("ipv4_addr_validation", &config), (Answer{-1, "(none)"}));
    EXPECT_EQ(validate(nullptr, &keypath, &newval), -1);
    EXPECT_EQ(validate(&tctx, nullptr, &newval), -1);
    EXPECT_EQ(validate(&tctx, &keypath, nullptr), -1);
    confd_trans_clear_err(&tctx);
    velconfd_destroy(host);
}

}  // namespace
