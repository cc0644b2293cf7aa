/*
 * Logical interface identifiers (limid).
 *
 * A limid_t names one logical interface in four bytes:
 *   type  (1 byte)  the kind of interface, LIMID_TYPE_*;
 *   slot  (1 byte)  the line card, 0 for interfaces that belong to no card;
 *   index (2 bytes) the number of the interface within its kind, host order.
 * The all-zero identifier means "no interface".
 *
 * A layer-3 VLAN interface has type LIMID_TYPE_L3_VLAN, slot 0 and the VLAN
 * number (1..4094) as index. Its interface index is
 *   LIMID_IFINDEX_L3_VLAN_BASE + VLAN number   (VLAN 100 -> 1000100).
 */
#ifndef LIMID_H
#define LIMID_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#define LIMID_TYPE_NONE 0
#define LIMID_TYPE_L3_VLAN 3

#define LIMID_VLAN_MIN 1
#define LIMID_VLAN_MAX 4094
#define LIMID_IFINDEX_L3_VLAN_BASE 1000000u

typedef struct limid {
    uint8_t type;
    uint8_t slot;
    uint16_t index;
} limid_t;

/*
 * Builds the identifier of the layer-3 interface over VLAN vlan. Returns 0;
 * for a VLAN number outside 1..4094 returns -1 and sets *out to all zero;
 * for a NULL out returns -1.
 */
int limid_l3_vlan_from_components(limid_t* out, int32_t vlan);

/*
 * The interface index of an identifier. Returns 0; for an identifier of an
 * unknown type, or a layer-3 VLAN identifier with a slot or a VLAN number out
 * of range, returns -1 and sets *ifindex to 0; for a NULL ifindex returns -1.
 */
int limid_to_ifindex(limid_t id, uint32_t* ifindex);

#ifdef __cplusplus
}
#endif

#endif /* LIMID_H */
