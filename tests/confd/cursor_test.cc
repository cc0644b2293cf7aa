/* Cursors: delivery order, keys, the end of the walk and misuse. */
#include <gtest/gtest.h>

#include <utility>

#include "project_data.h"
#include "test_util.h"

namespace {

using confd_test::cursor_keys;
using confd_test::error;
using confd_test::outcome;

constexpr const char* kLists = R"(
<top xmlns="urn:ipapp:test:test-lists">
  <by-number><n>10</n></by-number>
  <by-number><n>-1</n></by-number>
  <by-number><n>2</n></by-number>
  <by-number><n>100</n></by-number>
  <by-name><name>b</name></by-name>
  <by-name><name>a</name></by-name>
  <by-name><name>B</name></by-name>
  <by-name><name>aa</name></by-name>
  <by-user><name>zeta</name></by-user>
  <by-user><name>alpha</name></by-user>
  <by-user><name>mu</name></by-user>
  <by-pair><a>2</a><b>x</b></by-pair>
  <by-pair><a>1</a><b>z</b></by-pair>
  <by-pair><a>1</a><b>a</b></by-pair>
</top>)";

// Numbers numerically, strings and binary values bytewise, addresses by
// their bytes, several keys key by key; ordered-by user lists as written.
TEST(CursorOrder, SystemOrderIsKeyOrderAndUserOrderIsAsWritten) {
    const confdstore::Schema test_lists = confdstore::Schema::load(CONFD_TEST_DIR "/yang");
    ipapp_test::ConfdFixture lists(test_lists, "", kLists);
    ipapp_test::ConfdFixture project("", confd_test::Candidate());
    struct Case {
        ipapp_test::ConfdFixture& confd;
        const char* list;
        std::vector<std::string> keys;
    } cases[] = {
        {lists, "/top/by-number", {"-1", "2", "10", "100"}},
        {lists, "/top/by-name", {"B", "a", "aa", "b"}},
        {lists, "/top/by-user", {"zeta", "alpha", "mu"}},
        {lists, "/top/by-pair", {"1 a", "1 z", "2 x"}},
        {project, "/config/interface/ipapp:l3", {"10", "2", "5"}},
        {project, "/config/interface/l3{5}/ipv4/address/secondary", {"10.0.3.1/24", "10.1.3.1/24"}},
        {project,
         "/DC-RTM-MIB/rtmStaticRtTable/rtmStaticRtEntry",
         {"0 enum<1> 0a:00:00:00 8 1 0a:01:02:fe",
          "0 enum<2> 20:01:0d:b8:00:00:00:00:00:00:00:00:00:00:00:00 32 1 "
          "20:01:0d:b8:00:00:00:00:00:00:00:00:00:00:00:02"}},
        {project, "/config/interface/l3{10}/ipv4/address/secondary", {}},
        {project, "/config/interface/l3{99}/ipv4/address/secondary", {}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(cursor_keys(c.confd.maapi_socket(), c.confd.thandle(), c.list), c.keys) << c.list;
    }
}

TEST(CursorUse, KeysReadBackAsTheirTypesAndServeAsPathKeys) {
    ipapp_test::ConfdFixture confd("", confd_test::Candidate());
    const int s = confd.maapi_socket();
    const int th = confd.thandle();
    maapi_cursor mc;
    ASSERT_EQ(maapi_init_cursor(s, th, &mc, "/internal/ospfv3-interface-l3"), CONFD_OK);
    ASSERT_EQ(maapi_get_next(&mc), CONFD_OK);
    ASSERT_EQ(mc.n, 3);
    EXPECT_EQ(mc.keys[0].type, C_UINT32);
    EXPECT_EQ(mc.keys[1].type, C_IPV4);
    EXPECT_EQ(mc.keys[2].type, C_BUF);
    EXPECT_EQ(mc.keys[3].type, C_NOEXISTS);
    u_int32_t index = 0;
    EXPECT_EQ(
        maapi_get_u_int32_elem(
            s, th, &index, "/internal/ospfv3-interface-l3{%*x}/ospfv3-pm-if-index", mc.n, mc.keys),
        CONFD_OK);
    EXPECT_EQ(index, 1100u);
    EXPECT_EQ(maapi_get_next(&mc), CONFD_OK);
    EXPECT_EQ(mc.n, 0);
    EXPECT_EQ(maapi_get_next(&mc), CONFD_OK);  // past the end stays at the end
    EXPECT_EQ(mc.n, 0);
    maapi_destroy_cursor(&mc);
    maapi_destroy_cursor(&mc);
    EXPECT_EQ(outcome(maapi_get_next(&mc)),
              error(CONFD_ERR_BADSTATE, "cursor not initialised or destroyed"));
    EXPECT_EQ(mc.n, 0);
}

TEST(CursorUse, TheCursorOutlivesItsTransaction) {
    ipapp_test::ConfdFixture confd("", confd_test::Candidate());
    maapi_cursor mc;
    ASSERT_EQ(maapi_init_cursor(confd.maapi_socket(), confd.thandle(), &mc, "/config/interface/l3"),
              CONFD_OK);
    ASSERT_EQ(maapi_finish_trans(confd.maapi_socket(), confd.thandle()), CONFD_OK);
    ASSERT_EQ(maapi_get_next(&mc), CONFD_OK);
    EXPECT_EQ(confd_test::pp(mc.keys[0]), "10");
    maapi_destroy_cursor(&mc);
}

TEST(CursorUse, BadInitLeavesASafeCursor) {
    ipapp_test::ConfdFixture confd("", confd_test::Candidate());
    const std::pair<const char*, const char*> cases[] = {
        {"/config/interface/l3{5}", "/config/interface/l3{5} is not a list"},
        {"/config/interface/l3{5}/vrf", "/config/interface/l3{5}/vrf is not a list"},
        {"/nosuch", "unknown node 'nosuch' in /"},
    };
    for (const auto& [path, text] : cases) {
        maapi_cursor mc;
        EXPECT_EQ(
            outcome(maapi_init_cursor(confd.maapi_socket(), confd.thandle(), &mc, "%s", path)),
            error(CONFD_ERR_BADPATH, text))
            << path;
        EXPECT_EQ(maapi_get_next(&mc), CONFD_ERR);
        EXPECT_EQ(mc.n, 0);
        maapi_destroy_cursor(&mc);
    }
    EXPECT_EQ(
        maapi_init_cursor(confd.maapi_socket(), confd.thandle(), nullptr, "/config/interface/l3"),
        CONFD_ERR);
    EXPECT_EQ(maapi_get_next(nullptr), CONFD_ERR);
    maapi_destroy_cursor(nullptr);
}

}  // namespace
