// VRF indexes of component identifiers; the layout is described in id_vrf.h.
#include "id_vrf.h"

id_vrf_t IdVrfFromComponent(uint32_t component_id) {
    return static_cast<id_vrf_t>(component_id & 0xffffu);
}
