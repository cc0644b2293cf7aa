/* The fault-injection seam: named calls fail on normalised paths, nothing else. */
#include <gtest/gtest.h>

#include <functional>

#include "confd_fault_injection.h"
#include "project_data.h"
#include "test_util.h"

namespace {

namespace faults = confdstore::fault_injection;
using confd_test::error;
using confd_test::outcome;

constexpr const char* kVrf = "/config/interface/l3{5}/vrf";
constexpr const char* kVlan = "/config/interface/l3{5}/lower-layer-if/vlan";

class FaultInjection : public ::testing::Test {
  protected:
    void TearDown() override { faults::reset(); }

    ipapp_test::ConfdFixture confd{confd_test::Candidate(), confd_test::Candidate()};
    int s = confd.maapi_socket();
    int th = confd.thandle();
};

// The path is registered with a module prefix and blanks; the call names
// its keys by a template. Another call on the same path, and the same call
// on another path, are not affected.
TEST_F(FaultInjection, ExistsSucceedsWhileTheReadFails) {
    faults::fail("maapi_get_elem", "/config/interface/ipapp:l3{ 5 }/vrf", CONFD_ERR_NOEXISTS);
    EXPECT_EQ(maapi_exists(s, th, kVrf), 1);
    confd_value_t v;
    EXPECT_EQ(
        outcome(maapi_get_elem(s, th, &v, "/config/interface/l3{%s}/vrf", "5")),
        error(CONFD_ERR_NOEXISTS, "injected fault: maapi_get_elem /config/interface/l3{5}/vrf"));
    // The same, with the path read whole right after its existence check.
    EXPECT_EQ(maapi_exists(s, th, "%s", kVrf), 1);
    EXPECT_EQ(
        outcome(maapi_get_elem(s, th, &v, "%s", kVrf)),
        error(CONFD_ERR_NOEXISTS, "injected fault: maapi_get_elem /config/interface/l3{5}/vrf"));
    EXPECT_EQ(faults::hits(), 2);
    char name[16];
    EXPECT_EQ(maapi_get_str_elem(s, th, name, sizeof name, kVrf), CONFD_OK);
    EXPECT_EQ(maapi_get_elem(s, th, &v, "/config/interface/l3{5}/ipv4/address/ip"), CONFD_OK);
    confd_free_value(&v);
    faults::reset();
    EXPECT_EQ(maapi_get_elem(s, th, &v, kVrf), CONFD_OK);
    EXPECT_EQ(faults::hits(), 0);
    confd_free_value(&v);
}

TEST_F(FaultInjection, EachNamedCallCanFail) {
    const int cdb = socket(PF_INET, SOCK_STREAM, 0);
    ASSERT_EQ(cdb_connect(cdb, CDB_READ_SOCKET, confd.address(), confd.address_length()), CONFD_OK);
    ASSERT_EQ(cdb_start_session(cdb, CDB_RUNNING), CONFD_OK);
    maapi_cursor mc{};
    struct Case {
        const char* call;
        const char* path;
        std::function<int()> run;
    } cases[] = {
        {"maapi_exists", kVrf, [&] { return maapi_exists(s, th, kVrf); }},
        {"maapi_num_instances", kVrf, [&] { return maapi_num_instances(s, th, kVrf); }},
        {"maapi_get_u_int32_elem", kVrf,
         [&] {
             u_int32_t x;
             return maapi_get_u_int32_elem(s, th, &x, kVrf);
         }},
        {"maapi_init_cursor", kVrf, [&] { return maapi_init_cursor(s, th, &mc, kVrf); }},
        {"maapi_get_next", "/config/interface/l3",
         [&] {
             maapi_init_cursor(s, th, &mc, "/config/interface/ipapp:l3");
             return maapi_get_next(&mc) == CONFD_ERR && mc.n == 0 ? CONFD_ERR : CONFD_OK;
         }},
        {"maapi_xpath_eval_expr", kVrf,
         [&] {
             char* result = nullptr;
             return maapi_xpath_eval_expr(s, th, "vrf", &result, nullptr, kVrf);
         }},
        {"cdb_get_int32", "",
         [&] {
             int32_t vlan = 0;
             return cdb_get_int32(cdb, &vlan, kVlan);
         }},
    };
    for (const Case& c : cases) {
        faults::fail(c.call, c.path, CONFD_ERR_INTERNAL);
        const std::string path = *c.path != '\0' ? c.path : kVlan;
        EXPECT_EQ(outcome(c.run()),
                  error(CONFD_ERR_INTERNAL, std::string("injected fault: ") + c.call + " " + path))
            << c.call;
        maapi_destroy_cursor(&mc);
        faults::reset();
    }
    EXPECT_EQ(cdb_exists(cdb, kVlan), 1);
    cdb_close(cdb);
}

}  // namespace
