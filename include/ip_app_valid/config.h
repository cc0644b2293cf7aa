// The library context: one reader of each kind of configuration the checks
// need, with what each has read from the candidate configuration.
#ifndef IP_APP_VALID_CONFIG_H
#define IP_APP_VALID_CONFIG_H

#include "ip_app_valid/confd_api.h"

#include <vector>

#include "ip_app_valid/interface_config.h"
#include "ip_app_valid/interface_type.h"
#include "ip_app_valid/l3_config.h"
#include "ip_app_valid/lo_config.h"
#include "ip_app_valid/mgmt_config.h"
#include "ip_app_valid/ospfv2_config.h"
#include "ip_app_valid/static_route_config.h"

namespace ip_application {
namespace config_valid {

class Config {
  public:
    // Registers the interface readers in the order management, layer-3, loopback.
    Config();
    Config(const Config&) = delete;
    Config& operator=(const Config&) = delete;

    // Binds the callback's MAAPI socket and transaction into every reader.
    void Bind(int32_t maapi_sock, confd_trans_ctx* tctx);

    // The first interface reader of the given kind; null for Unknown.
    InterfaceConfig* intf_by_type(InterfaceType type) const;

    // The kind of interface whose list tag is the keypath's innermost element.
    static InterfaceType intf_type_from_confd_path(confd_hkeypath_t* keypath);

    Ospfv2Config ospfv2_config;
    StaticRouteConfig static_route_config;
    L3Config l3_config;
    LoConfig lo_config;
    MgmtConfig mgmt_config;
    std::vector<InterfaceConfig*> interface_configs;
};

}  // namespace config_valid
}  // namespace ip_application

#endif  // IP_APP_VALID_CONFIG_H
