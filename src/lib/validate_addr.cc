// The address and route validation points: each brings the readers its check
// needs up to date for one address family and runs a whole-configuration
// check. A failing check's text goes to the transaction as the argument of
// "%s", so it reaches the operator exactly as built.
#include "ip_app_valid/confd_api.h"

#include <initializer_list>

#include "invalid_interface_text.h"
#include "ip_app_valid.h"
#include "ip_app_valid/config.h"
#include "ip_app_valid/validate_config.h"

using ip_application::config_valid::Config;
using ip_application::config_valid::ConfigAddrFamily;
using ip_application::config_valid::GenericConfig;
using ip_application::config_valid::InterfaceType;
using ip_application::config_valid::kInvalidInterfaceText;
using ip_application::config_valid::ValidateConfig;

namespace {

// Reads the family into each reader that has not read it yet, in the order
// given.
void BringUpToDate(ConfigAddrFamily family, std::initializer_list<GenericConfig*> readers) {
    for (GenericConfig* reader : readers) {
        reader->ReadConfigIfNeeded(family);
    }
}

// The handler's answer to a check's result: 0, or -1 after handing the
// check's text to the transaction.
int32_t Report(confd_trans_ctx* tctx, int32_t result, const ValidateConfig& checks) {
    if (result == 0) {
        return 0;
    }
    confd_trans_seterr(tctx, "%s", checks.error().c_str());
    return -1;
}

using InterfaceCheck = int32_t (ValidateConfig::*)(const Config&, InterfaceType);

// The interface address handlers: every kind is read, because the check
// compares the kind the keypath names with the other two.
int32_t ValidateInterfaceAddresses(confd_trans_ctx* tctx, confd_hkeypath_t* keypath, Config& config,
                                   ConfigAddrFamily family, InterfaceCheck check) {
    const InterfaceType type = Config::intf_type_from_confd_path(keypath);
    if (type == InterfaceType::Unknown) {
        confd_trans_seterr(tctx, "%s", kInvalidInterfaceText);
        return -1;
    }
    BringUpToDate(family, {&config.l3_config, &config.lo_config, &config.mgmt_config,
                           &config.static_route_config});
    ValidateConfig checks;
    return Report(tctx, (checks.*check)(config, type), checks);
}

// The route handlers of both families.
int32_t ValidateRoutes(confd_trans_ctx* tctx, ConfigAddrFamily family, Config& config) {
    BringUpToDate(family, {&config.l3_config, &config.mgmt_config, &config.lo_config,
                           &config.static_route_config});
    ValidateConfig checks;
    return Report(tctx, checks.ValidateStaticRoute(config), checks);
}

}  // namespace

int32_t validate_ipv4_addr(int32_t, confd_trans_ctx* tctx, confd_hkeypath_t* keypath,
                           confd_value_t*, Config& config) {
    return ValidateInterfaceAddresses(tctx, keypath, config, ConfigAddrFamily::IPv4,
                                      &ValidateConfig::ValidateInterfaceIPv4);
}

int32_t validate_ipv6_addr(int32_t, confd_trans_ctx* tctx, confd_hkeypath_t* keypath,
                           confd_value_t*, Config& config) {
    return ValidateInterfaceAddresses(tctx, keypath, config, ConfigAddrFamily::IPv6,
                                      &ValidateConfig::ValidateInterfaceIPv6);
}

int32_t validate_ipv4_addr_cross_prot(int32_t, confd_trans_ctx* tctx, confd_hkeypath_t*,
                                      confd_value_t*, Config& config) {
    // Management interfaces take no part in OSPFv2.
    BringUpToDate(ConfigAddrFamily::IPv4,
                  {&config.l3_config, &config.lo_config, &config.ospfv2_config});
    ValidateConfig checks;
    return Report(tctx, checks.ValidateOspfv2(config), checks);
}

int32_t validate_ipv4_addr_route(int32_t, confd_trans_ctx* tctx, confd_hkeypath_t*, confd_value_t*,
                                 Config& config) {
    return ValidateRoutes(tctx, ConfigAddrFamily::IPv4, config);
}

int32_t validate_ipv6_addr_route(int32_t, confd_trans_ctx* tctx, confd_hkeypath_t*, confd_value_t*,
                                 Config& config) {
    return ValidateRoutes(tctx, ConfigAddrFamily::IPv6, config);
}

int32_t validate_route_l3_intf(int32_t, confd_trans_ctx* tctx, confd_hkeypath_t*, confd_value_t*,
                               Config& config) {
    // Routes of both families name output interfaces; only layer-3
    // interfaces have a lower layer to lose.
    BringUpToDate(ConfigAddrFamily::IPv4, {&config.l3_config, &config.static_route_config});
    BringUpToDate(ConfigAddrFamily::IPv6, {&config.static_route_config});
    ValidateConfig checks;
    return Report(tctx, checks.ValidateStaticRouteOutputIntf(config), checks);
}
