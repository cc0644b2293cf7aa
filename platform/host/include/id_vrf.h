/*
 * VRF identifiers.
 *
 * Tables of the routing stack name a VRF by a 32-bit component identifier:
 * the upper 16 bits carry the owning component's instance, the lower 16 bits
 * the VRF index that the CLI's VRF table (vrf-config/indexTOstring) is keyed
 * by. Index 0 is the global VRF.
 */
#ifndef ID_VRF_H
#define ID_VRF_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef uint16_t id_vrf_t;

#define ID_VRF_GLOBAL 0

/* The VRF index carried by a component identifier. */
id_vrf_t IdVrfFromComponent(uint32_t component_id);

#ifdef __cplusplus
}
#endif

#endif /* ID_VRF_H */
