// OSPFv2 cross checks on hand-built snapshots, for what a configuration file
// cannot produce: assignments without addresses, unnamed VRFs, and the
// order of the assignment list.
#include "ip_app_valid/confd_api.h"

#include <gtest/gtest.h>

#include <vector>

#include "ip_app_valid/validate_config.h"
#include "snapshot.h"

namespace {

using ip_application::config_valid::Config;
using ip_application::config_valid::ValidateConfig;

struct Case {
    std::vector<std::string> interfaces;
    std::vector<std::string> assignments;
    std::string error;  // "" when accepted
};

void ExpectVerdicts(const std::vector<Case>& cases,
                    int32_t (ValidateConfig::*validate)(const Config&)) {
    for (const Case& c : cases) {
        const auto config = plugin_test::SnapshotOf(c.interfaces, c.assignments);
        ValidateConfig checks;
        EXPECT_EQ((checks.*validate)(*config), c.error.empty() ? 0 : -1) << c.error;
        EXPECT_EQ(checks.error(), c.error);
    }
}

TEST(ValidateOspfv2, AddressesOfAssignedInterfaces) {
    ExpectVerdicts(
        {
            // An assignment without addresses fails on the interface's first.
            {{"l3 5|red|10.1.3.1/24,10.1.4.1/24"},
             {"l3 5|5|red|0.0.0.1"},
             "10.1.3.1/24 cannot be added after interface is assigned to router ospf 5 vrf red "
             "area 1 (0.0.0.1)"},
            // Assignments in list order, not interface order; the area as a
            // number and as an address.
            {{"l3 1|", "l3 2|"},
             {"l3 2|4294967295||192.168.0.1|10.2.2.2/24", "l3 1|1||0.0.0.1|10.1.1.1/24"},
             "10.2.2.2/24 cannot be modified nor deleted, it is assigned to router ospf 4294967295 "
             "vrf  area 3232235521 (192.168.0.1)"},
            {{"mgmt 0|red"}, {"mgmt 0|5|red|0.0.0.1|10.1.1.1/24"}, ""},
        },
        &ValidateConfig::ValidateOspfv2);
}

TEST(ValidateOspfv2Vrf, UnnamedVrfsAndLoopbacks) {
    const std::string divergent = " cannot be associated with divergent VRF";
    ExpectVerdicts(
        {
            {{"l3 5|"}, {"l3 5|5||0.0.0.1"}, ""},
            {{"l3 5|global"},
             {"l3 5|5||0.0.0.1"},
             "l3 5 vrf global and router ospf 5 vrf " + divergent},
            {{"l3 5|red", "loopback 5|blue"},
             {"loopback 5|7|red|0.0.0.1", "l3 5|5|red|0.0.0.1"},
             "loopback 5 vrf blue and router ospf 7 vrf red" + divergent},
            {{"mgmt 0|blue"}, {"mgmt 0|7|red|0.0.0.1"}, ""},
        },
        &ValidateConfig::ValidateOspfv2Vrf);
}

}  // namespace
