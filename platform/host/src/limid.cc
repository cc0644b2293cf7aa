// Logical interface identifiers of layer-3 VLAN interfaces and their
// interface indexes; the layout is described in limid.h.
#include "limid.h"

namespace {

bool vlan_in_range(int32_t vlan) {
    return vlan >= LIMID_VLAN_MIN && vlan <= LIMID_VLAN_MAX;
}

// Only well-formed identifiers of a known type have an interface index: a
// layer-3 VLAN identifier must name no card and a VLAN in range.
bool is_l3_vlan(const limid_t& id) {
    return id.type == LIMID_TYPE_L3_VLAN && id.slot == 0 && vlan_in_range(id.index);
}

}  // namespace

int limid_l3_vlan_from_components(limid_t* out, int32_t vlan) {
    if (out == nullptr) {
        return -1;
    }
    if (!vlan_in_range(vlan)) {
        *out = limid_t{LIMID_TYPE_NONE, 0, 0};
        return -1;
    }
    *out = limid_t{LIMID_TYPE_L3_VLAN, 0, static_cast<uint16_t>(vlan)};
    return 0;
}

int limid_to_ifindex(limid_t id, uint32_t* ifindex) {
    if (ifindex == nullptr) {
        return -1;
    }
    if (!is_l3_vlan(id)) {
        *ifindex = 0;
        return -1;
    }
    *ifindex = LIMID_IFINDEX_L3_VLAN_BASE + id.index;
    return 0;
}
