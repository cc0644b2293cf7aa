// Encodings of the interface and VRF identifier libraries.
#include <gtest/gtest.h>

#include <cstdint>

#include "id_vrf.h"
#include "limid.h"

namespace {

bool operator==(const limid_t& a, const limid_t& b) {
    return a.type == b.type && a.slot == b.slot && a.index == b.index;
}

constexpr limid_t kNone{LIMID_TYPE_NONE, 0, 0};

// A VLAN in range gives {L3_VLAN, 0, vlan} and index 1000000 + vlan; any
// other gives the all-zero identifier, whose index is refused as 0.
TEST(Limid, L3VlanIdentifierAndInterfaceIndex) {
    const struct {
        int32_t vlan;
        uint32_t ifindex;
    } cases[] = {{1, 1000001}, {4094, 1004094},  {0, 0},
                 {4095, 0},    {65536 + 100, 0}, {INT32_MIN, 0}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.vlan);
        const int result = c.ifindex != 0 ? 0 : -1;
        limid_t id{0xee, 0xee, 0xeeee};
        EXPECT_EQ(limid_l3_vlan_from_components(&id, c.vlan), result);
        const limid_t expected_id =
            result == 0 ? limid_t{LIMID_TYPE_L3_VLAN, 0, static_cast<uint16_t>(c.vlan)} : kNone;
        EXPECT_TRUE(id == expected_id);
        uint32_t ifindex = 0xdeadbeef;
        EXPECT_EQ(limid_to_ifindex(id, &ifindex), result);
        EXPECT_EQ(ifindex, c.ifindex);
    }
}

// Identifiers that no builder produces have no interface index.
TEST(Limid, RefusesMalformedIdentifiersAndNullOutputs) {
    const limid_t malformed[] = {
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
    EXPECT_EQ(limid_l3_vlan_from_components(nullptr, 100), -1);
    EXPECT_EQ(limid_to_ifindex(limid_t{LIMID_TYPE_L3_VLAN, 0, 100}, nullptr), -1);
}

TEST(IdVrfFromComponent, TakesTheLowSixteenBits) {
    const struct {
        uint32_t component;
        id_vrf_t vrf;
    } cases[] = {{0, ID_VRF_GLOBAL}, {0x00030005, 5}, {0x00010000, 0}, {0xffffffff, 0xffff}};
    for (const auto& c : cases) {
        EXPECT_EQ(IdVrfFromComponent(c.component), c.vrf) << std::hex << c.component;
    }
}

}  // namespace
