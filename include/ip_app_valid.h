/*
 * Entry points of the ip_app_valid configuration-validation plug-in.
 *
 * The host daemon loads the library, asks its name with
 * get_validation_point, creates its context with lib_init, calls validate for
 * every validation callback of the points the data model assigns to it, and
 * destroys the context with lib_finish. The eleven handlers that validate
 * dispatches to are exported under their own names as well.
 */
#ifndef IP_APP_VALID_H
#define IP_APP_VALID_H

#include <stdint.h>

/* The ConfD types of the signatures; confd_lib.h defines them. */
struct confd_trans_ctx;
struct confd_hkeypath;
struct confd_value;
typedef struct confd_hkeypath confd_hkeypath_t;
typedef struct confd_value confd_value_t;

#define IP_APP_VALID_EXPORT __attribute__((visibility("default")))

#ifdef __cplusplus
namespace ip_application {
namespace config_valid {
class Config;
}  // namespace config_valid
}  // namespace ip_application

extern "C" {
#endif

/* Creates the library context and stores its address in *context. Returns 0,
 * or -1 when context is NULL. */
IP_APP_VALID_EXPORT int lib_init(void** context);
/* Destroys the context in *context (nothing when it is NULL). Returns 0. */
IP_APP_VALID_EXPORT int lib_finish(void** context);
/* Writes the library name, cut to size, into name. Returns 0, or -1 when name
 * is NULL and size is not 0. */
IP_APP_VALID_EXPORT int get_validation_point(char* name, unsigned size);
/* The validation callback: 0 accepts, -1 refuses. */
IP_APP_VALID_EXPORT int validate(struct confd_trans_ctx* tctx, confd_hkeypath_t* keypath,
                                 confd_value_t* newval);

#ifdef __cplusplus
/*
 * The signature of the handlers: the MAAPI socket, the transaction, the
 * keypath and new value of the callback, and the library context. They
 * return 0 to accept and -1 to refuse after setting the transaction's error.
 */
typedef int32_t ValidationHandler(int32_t maapi_sock, confd_trans_ctx* tctx,
                                  confd_hkeypath_t* keypath, confd_value_t* newval,
                                  ip_application::config_valid::Config& config);

IP_APP_VALID_EXPORT ValidationHandler validate_intf_l3_name;
IP_APP_VALID_EXPORT ValidationHandler validate_intf_vrf;
IP_APP_VALID_EXPORT ValidationHandler validate_ipv4_addr;
IP_APP_VALID_EXPORT ValidationHandler validate_ipv4_addr_cross_prot;
IP_APP_VALID_EXPORT ValidationHandler validate_ipv4_addr_route;
IP_APP_VALID_EXPORT ValidationHandler validate_ipv6_addr;
IP_APP_VALID_EXPORT ValidationHandler validate_ipv6_addr_route;
IP_APP_VALID_EXPORT ValidationHandler validate_ipv6_nd_ra_interval;
IP_APP_VALID_EXPORT ValidationHandler validate_ipv6_nd_ra_lifetime;
IP_APP_VALID_EXPORT ValidationHandler validate_route_l3_intf;
IP_APP_VALID_EXPORT ValidationHandler validate_lower_layer_cross_prot;
}
#endif

#endif /* IP_APP_VALID_H */
