/* The fault-injection seam: named calls fail on normalised paths, nothing else. */
#include <gtest/gtest.h>

#include <functional>

#include "confd_fault_injection.h"
#include "project_data.h"
#include "test_util.h"

namespace {

namespace faults = confdstore::fault_injection;

class FaultInjection : public ::testing::Test {
  protected:
    void TearDown() override { faults::reset(); }

    ipapp_test::ConfdFixture confd{confd_test::kCandidate, confd_test::kCandidate};
    int s = confd.maapi_socket();
    int th = confd.thandle();
};

TEST_F(FaultInjection, ExistsSucceedsWhileTheReadFails) {
    faults::fail("maapi_get_elem", "/config/interface/ipapp:l3{ 5 }/vrf", CONFD_ERR_NOEXISTS);
    EXPECT_EQ(maapi_exists(s, th, "/config/interface/l3{5}/vrf"), 1);
    confd_value_t v;
    EXPECT_EQ(maapi_get_elem(s, th, &v, "/config/interface/l3{%s}/vrf", "5"), CONFD_ERR);
    EXPECT_EQ(confd_errno, CONFD_ERR_NOEXISTS);
    EXPECT_EQ(faults::hits(), 1);
    char name[16];
    EXPECT_EQ(maapi_get_str_elem(s, th, name, sizeof name, "/config/interface/l3{5}/vrf"),
              CONFD_OK);  // another call by name
    EXPECT_EQ(maapi_get_elem(s, th, &v, "/config/interface/l3{5}/ipv4/address/ip"), CONFD_OK);
    confd_free_value(&v);
}

TEST_F(FaultInjection, EachNamedCallCanFail) {
    struct Case {
        const char* call;
        std::function<int()> run;
    } cases[] = {
        {"maapi_exists", [&] { return maapi_exists(s, th, "/config/interface/l3{5}/vrf"); }},
        {"maapi_num_instances",
         [&] { return maapi_num_instances(s, th, "/config/interface/l3{5}/vrf"); }},
        {"maapi_get_u_int32_elem",
         [&] {
             u_int32_t x;
             return maapi_get_u_int32_elem(s, th, &x, "/config/interface/l3{5}/vrf");
         }},
        {"maapi_init_cursor",
         [&] {
             maapi_cursor mc;
             const int rc = maapi_init_cursor(s, th, &mc, "/config/interface/l3{5}/vrf");
             maapi_destroy_cursor(&mc);
             return rc;
         }},
        {"maapi_xpath_eval_expr",
         [&] {
             char* result = nullptr;
             return maapi_xpath_eval_expr(s, th, "vrf", &result, nullptr,
                                          "/config/interface/l3{5}/vrf");
         }},
    };
    for (const Case& c : cases) {
        faults::fail(c.call, "/config/interface/l3{5}/vrf", CONFD_ERR_INTERNAL);
        EXPECT_EQ(c.run(), CONFD_ERR) << c.call;
        EXPECT_EQ(confd_errno, CONFD_ERR_INTERNAL) << c.call;
        faults::reset();
    }
}

TEST_F(FaultInjection, CursorStepsAndCdbReadsFailOnTheirPaths) {
    faults::fail("maapi_get_next", "/config/interface/l3", CONFD_ERR_EXTERNAL);
    maapi_cursor mc;
    ASSERT_EQ(maapi_init_cursor(s, th, &mc, "/config/interface/ipapp:l3"), CONFD_OK);
    EXPECT_EQ(maapi_get_next(&mc), CONFD_ERR);
    EXPECT_EQ(mc.n, 0);
    maapi_destroy_cursor(&mc);

    faults::fail("cdb_get_int32", "", CONFD_ERR_NOEXISTS);
    const int cdb = socket(PF_INET, SOCK_STREAM, 0);
    ASSERT_EQ(cdb_connect(cdb, CDB_READ_SOCKET, confd.address(), confd.address_length()), CONFD_OK);
    ASSERT_EQ(cdb_start_session(cdb, CDB_RUNNING), CONFD_OK);
    int32_t vlan = 0;
    EXPECT_EQ(cdb_get_int32(cdb, &vlan, "/config/interface/l3{5}/lower-layer-if/vlan"), CONFD_ERR);
    EXPECT_EQ(cdb_exists(cdb, "/config/interface/l3{5}/lower-layer-if/vlan"), 1);
    cdb_close(cdb);
}

TEST_F(FaultInjection, OtherPathsAndAResetAreUnaffected) {
    faults::fail("maapi_exists", "/config/interface/l3{5}/vrf", CONFD_ERR_INTERNAL);
    EXPECT_EQ(maapi_exists(s, th, "/config/interface/l3{2}/vrf"), 0);
    EXPECT_EQ(maapi_exists(s, th, "/config/interface/l3{5}"), 1);
    faults::reset();
    EXPECT_EQ(maapi_exists(s, th, "/config/interface/l3{5}/vrf"), 1);
    EXPECT_EQ(faults::hits(), 0);
}

}  // namespace
