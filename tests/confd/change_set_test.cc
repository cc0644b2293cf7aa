/*
 * The host tool's view: which validation points fire, and on which
 * instances. The keypaths and new values handed to the handlers are proven
 * end to end (tests/scenarios).
 */
#include <gtest/gtest.h>

#include "config_xml.h"
#include "test_util.h"

namespace {

using ipapp_generator::Element;
using ipapp_generator::Interfaces;
using ipapp_generator::IPv6;
using ipapp_generator::L3;
using ipapp_generator::Mgmt;

const std::string kRunning = Interfaces(L3("5", IPv6({}, Element("max-interval", "600"))) +
                                        L3("6", ipapp_generator::Vlan(6)) + Mgmt("0")) +
                             ipapp_generator::Internal(ipapp_generator::VrfConfig(1, "a"));

// l3 5 changes a timer, 6 loses its VLAN (its lower-layer-if container stays,
// implicitly), 7 is new; the VRF table is gone.
const std::string kCandidate =
    Interfaces(L3("5", IPv6({}, Element("max-interval", "500"))) + L3("6") + L3("7") + Mgmt("0"));

class Changes : public ::testing::Test {
  protected:
    const confdstore::ValidationPoint& point(const std::string& name, const std::string& node) {
        for (const auto& p : points) {
            if (p.name == name && p.node_path == node) {
                return p;
            }
        }
        throw std::runtime_error("no point " + name + " on " + node);
    }

    std::vector<std::string> changed(const confdstore::ChangeSet& changes,
                                     const confdstore::ValidationPoint& p) {
        std::vector<std::string> paths;
        for (const auto& instance : changes.changed_instances(p)) {
            paths.push_back(instance.keypath().text());
        }
        return paths;
    }

    ipapp_test::ConfdFixture confd{kRunning, kCandidate};
    std::vector<confdstore::ValidationPoint> points =
        ipapp_test::project_schema().validation_points();
};

TEST_F(Changes, PointsFireOnTheirNodeDescendantsAndDependencies) {
    const confdstore::ChangeSet changes = confd.datastore().changes();
    struct Case {
        const char* name;
        const char* node;
        bool fires;
    } cases[] = {
        {"intf_l3_name_validation", "/config/interface/l3", true},
        {"validate_ipv6_nd_ra_interval", "/config/interface/l3/ipv6/nd/ra", true},
        {"lower_layer_prot_cross_validation", "/config/interface/l3/lower-layer-if", true},
        {"validate_ipv6_nd_ra_interval", "/config/interface/mgmt/ipv6/nd/ra", false},
        {"ipv4_addr_validation", "/config/interface/mgmt", false},
        {"ipv4_addr_validation", "/config/interface/loopback", true},  // vrf-config dependency
        {"intf_vrf_validation", "/config/interface/loopback", false},
        {"ipv4_addr_route_validation", "/DC-RTM-MIB/rtmStaticRtTable/rtmStaticRtEntry", true},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(changes.fires(point(c.name, c.node)), c.fires) << c.name << " on " << c.node;
    }
}

TEST_F(Changes, PerInstancePointsGetTheChangedAndCreatedInstances) {
    const confdstore::ChangeSet changes = confd.datastore().changes();
    EXPECT_EQ(
        changed(changes, point("validate_ipv6_nd_ra_interval", "/config/interface/l3/ipv6/nd/ra")),
        (std::vector<std::string>{"/config/interface/l3{5}/ipv6/nd/ra",
                                  "/config/interface/l3{7}/ipv6/nd/ra"}));
    EXPECT_EQ(changed(changes, point("lower_layer_prot_cross_validation",
                                     "/config/interface/l3/lower-layer-if")),
              (std::vector<std::string>{"/config/interface/l3{6}/lower-layer-if",
                                        "/config/interface/l3{7}/lower-layer-if"}));
    EXPECT_EQ(
        confd.datastore()
            .instances(point("validate_ipv6_nd_ra_interval", "/config/interface/l3/ipv6/nd/ra"))
            .size(),
        3u);
}

void ExpectNothingFires(const confdstore::Datastore& datastore) {
    const confdstore::ChangeSet changes = datastore.changes();
    for (const auto& p : ipapp_test::project_schema().validation_points()) {
        EXPECT_FALSE(changes.fires(p)) << p.name << " on " << p.node_path;
    }
}

TEST(ChangesOfEqualConfigurations, NothingFires) {
    ipapp_test::ConfdFixture confd{kRunning, kRunning};
    ExpectNothingFires(confd.datastore());
}

// As after a commit: running is the candidate's tree, and the candidate
// stays the changed one (l3 5, 6 and 7).
TEST_F(Changes, NothingFiresOnceTheCandidateIsCopiedToRunning) {
    confd.datastore().copy_candidate_to_running();
    ExpectNothingFires(confd.datastore());
    EXPECT_EQ(
        confd.datastore()
            .instances(point("validate_ipv6_nd_ra_interval", "/config/interface/l3/ipv6/nd/ra"))
            .size(),
        3u);
}

}  // namespace
