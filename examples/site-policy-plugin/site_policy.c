/*
 * A validation plug-in of one site's own rule, next to the device's: router
 * advertisements at least every 300 seconds. The device loads it like any
 * plug-in; it serves the validation point validate_ipv6_nd_ra_interval of
 * the model and accepts every other call.
 */
#include <confd_lib.h>
#include <confd_maapi.h>
#include <velconfd.h>

#include <stdio.h>
#include <string.h>

#define EXPORT __attribute__((visibility("default")))

enum { kLongestInterval = 300 };

EXPORT int get_validation_point(char* name, unsigned size) {
    if (size > 0) {
        snprintf(name, size, "%s", "site_policy");
    }
    return 0;
}

EXPORT int lib_init(void** context) {
    *context = NULL;
    return 0;
}

EXPORT int lib_finish(void** context) {
    (void)context;
    return 0;
}

EXPORT int validate(struct confd_trans_ctx* tctx, confd_hkeypath_t* keypath,
                    confd_value_t* newval) {
    (void)newval;
    const char* point = tctx->vcb_opaque;
    if (point == NULL || strcmp(point, "validate_ipv6_nd_ra_interval") != 0) {
        return 0;
    }
    int maapi_socket = velconfd_maapi_socket_get(tctx->t_opaque);
    u_int16_t interval = 0;
    if (maapi_get_u_int16_elem(maapi_socket, tctx->thandle, &interval, "%h/max-interval",
                               keypath) != CONFD_OK ||
        interval <= kLongestInterval) {
        return 0;
    }
    char path[256];
    confd_pp_kpath(path, sizeof path, keypath);
    confd_trans_seterr(tctx, "%s: max-interval %u is above the site's limit of %d seconds", path,
                       (unsigned)interval, kLongestInterval);
    return -1;
}
