#include "ip_app_valid/confd_api.h"

#include "ip_app_valid.h"

// The interface VRF change rule is not implemented yet: refused.
int32_t validate_intf_vrf(int32_t, confd_trans_ctx*, confd_hkeypath_t*, confd_value_t*,
                          ip_application::config_valid::Config&) {
    return -1;
}
