// OSPFv2 cross checks on hand-built snapshots: addresses and VRF of
// interfaces assigned to OSPFv2 processes.
#include "ip_app_valid/confd_api.h"

#include <gtest/gtest.h>

#include <vector>

#include "ip_app_valid/validate_config.h"
#include "snapshot.h"

namespace {

using ip_application::config_valid::Config;
using ip_application::config_valid::ValidateConfig;
using plugin_test::InterfaceSpec;
using plugin_test::MakeInterface;

struct Assignment {
    const char* intf_name;
    uint32_t process_id;
    const char* vrf;
    const char* area;
    const char* addr;
};

struct Case {
    const char* what;
    std::vector<InterfaceSpec> l3;
    std::vector<InterfaceSpec> lo;
    std::vector<Assignment> assignments;
    const char* error;  // "" when accepted
};

void ExpectVerdicts(const std::vector<Case>& cases,
                    int32_t (ValidateConfig::*validate)(const Config&)) {
    for (const Case& c : cases) {
        auto config = plugin_test::EmptySnapshot();
        for (const InterfaceSpec& spec : c.l3) {
            config->l3_config.MergeConfigAndInsert(MakeInterface(spec));
        }
        for (const InterfaceSpec& spec : c.lo) {
            config->lo_config.MergeConfigAndInsert(MakeInterface(spec));
        }
        for (const Assignment& a : c.assignments) {
            auto record = plugin_test::MakeOspfIf(a.intf_name, a.process_id, a.vrf, a.area, a.addr);
            config->ospfv2_config.MergeConfigAndInsert(record);
        }
        ValidateConfig checks;
        EXPECT_EQ((checks.*validate)(*config), *c.error == '\0' ? 0 : -1) << c.what;
        EXPECT_EQ(checks.error(), c.error) << c.what;
    }
}

TEST(ValidateOspfv2, AssignedAddressesStayAsTheyAre) {
    ExpectVerdicts(
        {
            {"unchanged",
             {{"l3 5", "red", {"10.1.1.1/24"}}},
             {},
             {{"l3 5", 5, "red", "0.0.0.1", "10.1.1.1/24"}},
             ""},
            {"removed",
             {{"l3 5", "red", {}}},
             {},
             {{"l3 5", 5, "red", "0.0.0.1", "10.1.1.1/24"}},
             "10.1.1.1/24 cannot be modified nor deleted, it is assigned to router ospf 5 vrf red "
             "area 1 (0.0.0.1)"},
            {"mask changed",
             {{"l3 5", "red", {"10.1.1.1/16"}}},
             {},
             {{"l3 5", 5, "red", "0.0.0.1", "10.1.1.1/24"}},
             "10.1.1.1/24 cannot be modified nor deleted, it is assigned to router ospf 5 vrf red "
             "area 1 (0.0.0.1)"},
            {"both known addresses present",
             {{"l3 5", "red", {"10.1.2.1/24", "10.1.1.1/24"}}},
             {},
             {{"l3 5", 5, "red", "0.0.0.1", "10.1.1.1/24"},
              {"l3 5", 5, "red", "0.0.0.1", "10.1.2.1/24"}},
             ""},
            {"third address added: the first one the record lacks, in interface order",
             {{"l3 5", "red", {"10.1.1.1/24", "10.1.9.1/24", "10.1.2.1/24"}}},
             {},
             {{"l3 5", 5, "red", "0.0.0.1", "10.1.1.1/24"},
              {"l3 5", 5, "red", "0.0.0.1", "10.1.2.1/24"}},
             "10.1.9.1/24 cannot be added after interface is assigned to router ospf 5 vrf red "
             "area "
             "1 (0.0.0.1)"},
            {"replaced address: additions not looked for",
             {{"l3 5", "red", {"10.1.3.1/24"}}},
             {},
             {{"l3 5", 5, "red", "0.0.0.1", "10.1.1.1/24"}},
             "10.1.1.1/24 cannot be modified nor deleted, it is assigned to router ospf 5 vrf red "
             "area 1 (0.0.0.1)"},
            {"interfaces OSPF does not name change freely",
             {{"l3 6", "blue", {"10.9.9.9/8", "10.8.8.8/8"}}},
             {{"loopback 6", "blue", {}}},
             {{"l3 5", 5, "red", "0.0.0.1", "10.1.1.1/24"},
              {"loopback 5", 5, "red", "0.0.0.1", "10.2.2.2/32"}},
             ""},
            {"the area prints as number and as address",
             {{"l3 5", "", {}}},
             {},
             {{"l3 5", 4294967295u, "", "192.168.0.1", "10.1.1.1/24"}},
             "10.1.1.1/24 cannot be modified nor deleted, it is assigned to router ospf 4294967295 "
             "vrf  area 3232235521 (192.168.0.1)"},
        },
        &ValidateConfig::ValidateOspfv2);
}

TEST(ValidateOspfv2, LayerThreeBeforeLoopbackAndRecordOrderDecides) {
    ExpectVerdicts(
        {
            {"a layer-3 failure hides a loopback failure",
             {{"l3 5", "red", {}}},
             {{"loopback 1", "red", {}}},
             {{"loopback 1", 1, "red", "0.0.0.0", "1.1.1.1/32"},
              {"l3 5", 5, "red", "0.0.0.1", "10.1.1.1/24"}},
             "10.1.1.1/24 cannot be modified nor deleted, it is assigned to router ospf 5 vrf red "
             "area 1 (0.0.0.1)"},
            {"loopbacks once the layer-3 interfaces pass",
             {{"l3 5", "red", {"10.1.1.1/24"}}},
             {{"loopback 1", "red", {}}},
             {{"l3 5", 5, "red", "0.0.0.1", "10.1.1.1/24"},
              {"loopback 1", 1, "red", "0.0.0.0", "1.1.1.1/32"}},
             "1.1.1.1/32 cannot be modified nor deleted, it is assigned to router ospf 1 vrf red "
             "area 0 (0.0.0.0)"},
            {"records in list order, not interface order",
             {{"l3 1", "red", {}}, {"l3 2", "red", {}}},
             {},
             {{"l3 2", 2, "red", "0.0.0.2", "10.2.2.2/24"},
              {"l3 1", 1, "red", "0.0.0.1", "10.1.1.1/24"}},
             "10.2.2.2/24 cannot be modified nor deleted, it is assigned to router ospf 2 vrf red "
             "area 2 (0.0.0.2)"},
            {"one interface under two processes: each record is checked",
             {{"l3 1", "red", {"10.1.1.1/24"}}},
             {},
             {{"l3 1", 1, "red", "0.0.0.1", "10.1.1.1/24"},
              {"l3 1", 2, "red", "0.0.0.1", "10.1.1.2/24"}},
             "10.1.1.2/24 cannot be modified nor deleted, it is assigned to router ospf 2 vrf red "
             "area 1 (0.0.0.1)"},
        },
        &ValidateConfig::ValidateOspfv2);
}

TEST(ValidateOspfv2Vrf, InterfaceStaysInItsProcessVrf) {
    ExpectVerdicts(
        {
            {"same VRF",
             {{"l3 5", "red", {"10.0.0.1/24"}}},
             {},
             {{"l3 5", 5, "red", "0.0.0.1", "10.9.9.9/24"}},
             ""},
            {"both in the unnamed VRF",
             {{"l3 5", "", {}}},
             {},
             {{"l3 5", 5, "", "0.0.0.1", "10.9.9.9/24"}},
             ""},
            {"divergent",
             {{"l3 5", "blue", {}}},
             {},
             {{"l3 5", 5, "red", "0.0.0.1", "10.9.9.9/24"}},
             "l3 5 vrf blue and router ospf 5 vrf red cannot be associated with divergent VRF"},
            {"global is not the unnamed VRF",
             {{"l3 5", "global", {}}},
             {},
             {{"l3 5", 5, "", "0.0.0.1", "10.9.9.9/24"}},
             "l3 5 vrf global and router ospf 5 vrf  cannot be associated with divergent VRF"},
            {"layer-3 before loopback",
             {{"l3 5", "blue", {}}},
             {{"loopback 5", "blue", {}}},
             {{"loopback 5", 7, "red", "0.0.0.1", "10.9.9.9/32"},
              {"l3 5", 5, "red", "0.0.0.1", "10.9.9.9/24"}},
             "l3 5 vrf blue and router ospf 5 vrf red cannot be associated with divergent VRF"},
            {"loopback",
             {},
             {{"loopback 5", "blue", {}}},
             {{"loopback 5", 7, "red", "0.0.0.1", "10.9.9.9/32"}},
             "loopback 5 vrf blue and router ospf 7 vrf red cannot be associated with divergent "
             "VRF"},
            {"addresses are not looked at",
             {{"l3 5", "red", {"10.0.0.2/24"}}},
             {},
             {{"l3 5", 5, "red", "0.0.0.1", "10.9.9.9/24"}},
             ""},
        },
        &ValidateConfig::ValidateOspfv2Vrf);
}

}  // namespace
