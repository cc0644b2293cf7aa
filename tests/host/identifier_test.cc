// Encodings of the interface and VRF identifier libraries.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "id_vrf.h"
#include "limid.h"

namespace {

bool operator==(const limid_t& a, const limid_t& b) {
    return a.type == b.type && a.slot == b.slot && a.index == b.index;
}

constexpr limid_t kNone{LIMID_TYPE_NONE, 0, 0};

struct VlanCase {
    int32_t vlan;
    int result;
    limid_t id;
    uint32_t ifindex;
};

class L3VlanTest : public testing::TestWithParam<VlanCase> {};

TEST_P(L3VlanTest, BuildsIdentifierAndInterfaceIndex) {
    const VlanCase& c = GetParam();
    limid_t id{0xee, 0xee, 0xeeee};
    EXPECT_EQ(limid_l3_vlan_from_components(&id, c.vlan), c.result);
    EXPECT_TRUE(id == c.id);
    uint32_t ifindex = 0xdeadbeef;
    EXPECT_EQ(limid_to_ifindex(id, &ifindex), c.result);
    EXPECT_EQ(ifindex, c.ifindex);
}

INSTANTIATE_TEST_SUITE_P(
    Vlans, L3VlanTest,
    testing::Values(VlanCase{1, 0, {LIMID_TYPE_L3_VLAN, 0, 1}, 1000001},
                    VlanCase{100, 0, {LIMID_TYPE_L3_VLAN, 0, 100}, 1000100},
                    VlanCase{4094, 0, {LIMID_TYPE_L3_VLAN, 0, 4094}, 1004094},
                    VlanCase{0, -1, kNone, 0}, VlanCase{4095, -1, kNone, 0},
                    VlanCase{-1, -1, kNone, 0}, VlanCase{65536 + 100, -1, kNone, 0},
                    VlanCase{std::numeric_limits<int32_t>::min(), -1, kNone, 0},
                    VlanCase{std::numeric_limits<int32_t>::max(), -1, kNone, 0}));

// Identifiers that no builder produces have no interface index.
TEST(LimidToIfindex, RefusesMalformedIdentifiers) {
    const limid_t malformed[] = {
        kNone,
        {LIMID_TYPE_L3_VLAN, 1, 100},
        {LIMID_TYPE_L3_VLAN, 0, 0},
        {LIMID_TYPE_L3_VLAN, 0, 4095},
        {LIMID_TYPE_L3_VLAN + 1, 0, 100},
    };
    for (const limid_t& id : malformed) {
        uint32_t ifindex = 7;
        EXPECT_EQ(limid_to_ifindex(id, &ifindex), -1)
            << int(id.type) << '/' << int(id.slot) << '/' << id.index;
        EXPECT_EQ(ifindex, 0u);
    }
}

TEST(Limid, NullOutputsAreRefused) {
    EXPECT_EQ(limid_l3_vlan_from_components(nullptr, 100), -1);
    EXPECT_EQ(limid_to_ifindex(limid_t{LIMID_TYPE_L3_VLAN, 0, 100}, nullptr), -1);
}

TEST(IdVrfFromComponent, TakesTheLowSixteenBits) {
    const struct {
        uint32_t component;
        id_vrf_t vrf;
    } cases[] = {
        {0, ID_VRF_GLOBAL},   {5, 5}, {0x00030005, 5}, {0x00010000, 0}, {0xffffffff, 0xffff},
        {0x8000fffe, 0xfffe},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(IdVrfFromComponent(c.component), c.vrf) << std::hex << c.component;
    }
}

}  // namespace
