/* maapi_keypath_diff_iterate: operations, order and control. */
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "config_xml.h"
#include "test_util.h"

namespace {

using ipapp_generator::Element;
using ipapp_generator::Interfaces;
using ipapp_generator::IPv4;
using ipapp_generator::IPv6;
using ipapp_generator::L3;
using ipapp_generator::Vlan;
using ipapp_generator::Vrf;

const std::string kRunning =
    Interfaces(L3("5", Vrf("red") + IPv4("", {"10.1.3.1/24"}) +
                           IPv6({}, Element("max-interval", "600")) + Vlan(99)) +
               L3("7") + L3("8", Vrf("blue")));

// Entries written out of key order: the walk delivers them in key order.
const std::string kCandidate = Interfaces(
    L3("9", Vrf("green") + Vlan(10)) + L3("8", Vrf("blue")) +
    L3("5", Vrf("blue") + IPv4("", {"10.10.0.1/24", "10.1.3.1/24", "10.9.9.9/24"}) +
                IPv6({}, Element("max-interval", "600") + Element("min-interval", "100"))));

const char* op_name(enum maapi_iter_op op) {
    static const char* const names[] = {"other", "created", "deleted", "modified", "set"};
    return op >= MOP_CREATED && op <= MOP_VALUE_SET ? names[op] : "other";
}

// Records each event; answers with the reply of the first rule whose text
// the event starts with, ITER_RECURSE otherwise.
struct Recorder {
    std::vector<std::pair<std::string, enum maapi_iter_ret>> rules;
    std::vector<std::string> events;

    static enum maapi_iter_ret iterate(confd_hkeypath_t* kp, enum maapi_iter_op op,
                                       confd_value_t* oldv, confd_value_t* newv, void* state) {
        auto* self = static_cast<Recorder*>(state);
        std::string event = std::string(op_name(op)) + " " + confd_test::pp(*kp);
        EXPECT_EQ(oldv, nullptr);
        EXPECT_EQ(newv != nullptr, op == MOP_VALUE_SET) << event;
        if (newv != nullptr) {
            event += " = " + confd_test::pp(*newv);
        }
        self->events.push_back(event);
        for (const auto& [prefix, reply] : self->rules) {
            if (event.rfind(prefix, 0) == 0) {
                return reply;
            }
        }
        return ITER_RECURSE;
    }
};

class DiffIterate : public ::testing::Test {
  protected:
    std::vector<std::string> run(const char* path, Recorder recorder = {}) {
        const int rc = maapi_keypath_diff_iterate(confd.maapi_socket(), confd.thandle(),
                                                  Recorder::iterate, 0, &recorder, "%s", path);
        EXPECT_EQ(rc, CONFD_OK) << confd_lasterr();
        return recorder.events;
    }

    ipapp_test::ConfdFixture confd{kRunning, kCandidate};
};

TEST_F(DiffIterate, ReportsEveryKindOfChangeInDocumentedOrder) {
    const std::vector<std::string> expected = {
        "deleted /config/interface/l3{7}",
        "modified /config/interface/l3{5}",
        "deleted /config/interface/l3{5}/lower-layer-if/vlan",
        "set /config/interface/l3{5}/vrf = blue",
        "created /config/interface/l3{5}/ipv4/address/secondary{10.9.9.9/24}",
        "created /config/interface/l3{5}/ipv4/address/secondary{10.10.0.1/24}",
        "set /config/interface/l3{5}/ipv6/nd/ra/min-interval = 100",
        "created /config/interface/l3{9}",
        "set /config/interface/l3{9}/vrf = green",
        "set /config/interface/l3{9}/lower-layer-if/vlan = 10",
    };
    EXPECT_EQ(run("/config/interface/ipapp:l3"), expected);
}

TEST_F(DiffIterate, RepliesStopOrSkipTheWalk) {
    struct Case {
        const char* name;
        std::vector<std::pair<std::string, enum maapi_iter_ret>> rules;
        std::vector<std::string> events;
    } cases[] = {
        {"stop at the first set value",
         {{"set", ITER_STOP}},
         {"deleted /config/interface/l3{7}", "modified /config/interface/l3{5}",
          "deleted /config/interface/l3{5}/lower-layer-if/vlan",
          "set /config/interface/l3{5}/vrf = blue"}},
        {"continue skips what is below",
         {{"modified", ITER_CONTINUE}, {"created", ITER_CONTINUE}},
         {"deleted /config/interface/l3{7}", "modified /config/interface/l3{5}",
          "created /config/interface/l3{9}"}},
        {"up skips the remaining siblings",
         {{"modified", ITER_UP}},
         {"deleted /config/interface/l3{7}", "modified /config/interface/l3{5}"}},
    };
    for (const Case& c : cases) {
        Recorder recorder;
        recorder.rules = c.rules;
        EXPECT_EQ(run("/config/interface/l3", recorder), c.events) << c.name;
    }
}

TEST_F(DiffIterate, APathNarrowsTheWalk) {
    EXPECT_EQ(run("/config/interface/l3{9}/lower-layer-if"),
              (std::vector<std::string>{"set /config/interface/l3{9}/lower-layer-if/vlan = 10"}));
    EXPECT_EQ(run("/config/interface/l3{7}"),
              (std::vector<std::string>{"deleted /config/interface/l3{7}"}));
    EXPECT_TRUE(run("/config/interface/l3{8}").empty());
    EXPECT_TRUE(run("/config/interface/loopback").empty());
    EXPECT_EQ(run("/config/interface/l3{5}/ipv4/address/secondary"),
              (std::vector<std::string>{
                  "created /config/interface/l3{5}/ipv4/address/secondary{10.9.9.9/24}",
                  "created /config/interface/l3{5}/ipv4/address/secondary{10.10.0.1/24}"}));
}

TEST_F(DiffIterate, BadCallsAreErrors) {
    Recorder recorder;
    EXPECT_EQ(confd_test::outcome(maapi_keypath_diff_iterate(confd.maapi_socket(), confd.thandle(),
                                                             Recorder::iterate, 0, &recorder,
                                                             "/config/nosuch")),
              confd_test::error(CONFD_ERR_BADPATH, "unknown node 'nosuch' in /config"));
    EXPECT_EQ(maapi_keypath_diff_iterate(confd.maapi_socket(), confd.thandle(), nullptr, 0,
                                         &recorder, "/config"),
              CONFD_ERR);
    EXPECT_EQ(maapi_keypath_diff_iterate(confd.maapi_socket(), 424242, Recorder::iterate, 0,
                                         &recorder, "/config"),
              CONFD_ERR);
    EXPECT_TRUE(recorder.events.empty());
}

// Rows of a top-level list: each row is a sibling at the root of the tree.
std::string GlobalRow(size_t index, const char* interface_name) {
    std::string row;
    ipapp_generator::XmlWriter xml(row);
    ipapp_generator::OutputInterfaceRow(
        xml, ipapp_generator::Route{0, "ipv4", index, "0a:00:00:00", 8, "0a:00:00:01"},
        interface_name);
    return row;
}

TEST(DiffIterateTopLevel, RowsAtTheRootDiffLikeNestedOnes) {
    const std::string running = GlobalRow(1, "l3-1") + GlobalRow(2, "l3-2") + GlobalRow(3, "l3-3");
    const std::string candidate =
        GlobalRow(4, "l3-4") + GlobalRow(3, "l3-3") + GlobalRow(2, "l3-9");
    ipapp_test::ConfdFixture confd(running, candidate);
    Recorder recorder;
    ASSERT_EQ(maapi_keypath_diff_iterate(confd.maapi_socket(), confd.thandle(), Recorder::iterate,
                                         0, &recorder, "/rtmStaticRtEntry-global"),
              CONFD_OK)
        << confd_lasterr();
    const std::string row = "/rtmStaticRtEntry-global{";
    const std::string keys = " 0a:00:00:00 8 0a:00:00:01}";
    EXPECT_EQ(recorder.events, (std::vector<std::string>{
                                   "deleted " + row + "1" + keys,
                                   "modified " + row + "2" + keys,
                                   "set " + row + "2" + keys + "/interface-name = l3-9",
                                   "created " + row + "4" + keys,
                                   "set " + row + "4" + keys + "/interface-name = l3-4",
                               }));
    EXPECT_EQ(
        maapi_num_instances(confd.maapi_socket(), confd.thandle(), "/rtmStaticRtEntry-global"), 3);
}

}  // namespace
