// The VRF change rule of layer-3 and loopback interfaces. In this order: the
// interface addresses stay unique per VRF, OSPFv2 interfaces stay in their
// process's VRF, and interfaces that OSPFv3 runs on get no VRF at all. The
// first failure is reported, so an address conflict hides an OSPF problem.
#include "ip_app_valid/confd_api.h"

#include <ipapp.h>

#include <initializer_list>
#include <memory>

#include "ip_app_valid.h"
#include "ip_app_valid/config.h"
#include "ip_app_valid/validate_config.h"
#include "ip_app_valid/validate_intf_vrf.h"

using ip_application::config_valid::Config;
using ip_application::config_valid::ConfigAddrFamily;
using ip_application::config_valid::GenericConfig;
using ip_application::config_valid::InterfaceType;
using ip_application::config_valid::ValidateConfig;

namespace {

// The keypath of the call-once point on an interface list,
// /config/interface/l3, and the other form the point can be placed on.
constexpr int kListKeypathLength = 3;
constexpr int kEntryKeypathLength = 6;

int32_t Refuse(confd_trans_ctx* tctx, const std::string& text) {
    confd_trans_seterr(tctx, "%s", text.c_str());
    return -1;
}

// The iterator of the OSPFv3 rule for the interface list the tag names;
// null for a list the rule does not concern.
std::unique_ptr<ValidateIntfVrf> Ospfv3Iterator(int32_t maapi_sock, confd_trans_ctx* tctx,
                                                u_int32_t list_tag) {
    switch (list_tag) {
        case ipapp_loopback:
            return std::make_unique<ValidateIntfLoVrf>(maapi_sock, tctx,
                                                       "/config/interface/loopback");
        case ipapp_l3:
            return std::make_unique<ValidateIntfL3Vrf>(maapi_sock, tctx, "/config/interface/l3");
        default:
            return nullptr;
    }
}

}  // namespace

int32_t validate_intf_vrf(int32_t maapi_sock, confd_trans_ctx* tctx, confd_hkeypath_t* keypath,
                          confd_value_t*, Config& config) {
    const InterfaceType type = Config::intf_type_from_confd_path(keypath);
    for (GenericConfig* reader : std::initializer_list<GenericConfig*>{
             &config.l3_config, &config.lo_config, &config.mgmt_config, &config.static_route_config,
             &config.ospfv2_config}) {
        reader->ReadConfigIfNeeded(ConfigAddrFamily::IPv4);
    }
    ValidateConfig checks;
    if (type != InterfaceType::Unknown && checks.ValidateInterfaceIPv4(config, type) != 0) {
        return Refuse(tctx, checks.error());
    }
    if (checks.ValidateOspfv2Vrf(config) != 0) {
        return Refuse(tctx, checks.error());
    }

    if (keypath->len == kListKeypathLength) {
        const std::unique_ptr<ValidateIntfVrf> iterator =
            Ospfv3Iterator(maapi_sock, tctx, CONFD_GET_XMLTAG(&keypath->v[0][0]));
        return iterator != nullptr ? iterator->RunValidation() : 0;
    }
    if (keypath->len == kEntryKeypathLength) {
        // Nothing further is checked for this form; its element 4 must still
        // be a tag.
        static_cast<void>(CONFD_GET_XMLTAG(&keypath->v[4][0]));
    }
    return 0;
}
