#include "ip_app_valid/config.h"

#include <ipapp.h>

namespace ip_application {
namespace config_valid {

Config::Config() : interface_configs{&mgmt_config, &l3_config, &lo_config} {}

void Config::Bind(int32_t maapi_sock, confd_trans_ctx* tctx) {
    ospfv2_config.Bind(maapi_sock, tctx);
    static_route_config.Bind(maapi_sock, tctx);
    l3_config.Bind(maapi_sock, tctx);
    lo_config.Bind(maapi_sock, tctx);
    mgmt_config.Bind(maapi_sock, tctx);
}

InterfaceConfig* Config::intf_by_type(InterfaceType type) const {
    for (InterfaceConfig* reader : interface_configs) {
        if (reader->type() == type) {
            return reader;
        }
    }
    return nullptr;
}

InterfaceType Config::intf_type_from_confd_path(confd_hkeypath_t* keypath) {
    if (keypath->len < 1) {
        return InterfaceType::Unknown;
    }
    switch (CONFD_GET_XMLTAG(&keypath->v[0][0])) {
        case ipapp_loopback:
            return InterfaceType::Lo;
        case ipapp_l3:
            return InterfaceType::L3;
        case ipapp_mgmt:
            return InterfaceType::Mgmt;
        default:
            return InterfaceType::Unknown;
    }
}

}  // namespace config_valid
}  // namespace ip_application
