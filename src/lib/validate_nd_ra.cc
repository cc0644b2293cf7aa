#include "ip_app_valid/confd_api.h"

#include "ip_app_valid.h"

// The router advertisement timer rules are not implemented yet: refused.
int32_t validate_ipv6_nd_ra_interval(int32_t, confd_trans_ctx*, confd_hkeypath_t*, confd_value_t*,
                                     ip_application::config_valid::Config&) {
    return -1;
}

int32_t validate_ipv6_nd_ra_lifetime(int32_t, confd_trans_ctx*, confd_hkeypath_t*, confd_value_t*,
                                     ip_application::config_valid::Config&) {
    return -1;
}
