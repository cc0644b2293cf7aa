// The checks that look at the configuration snapshot as a whole. A handler
// makes one ValidateConfig per callback; a failing check replaces its error
// text with the text for the operator, a passing check leaves it alone.
#ifndef IP_APP_VALID_VALIDATE_CONFIG_H
#define IP_APP_VALID_VALIDATE_CONFIG_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "ip_app_valid/config.h"
#include "ip_app_valid/interface.h"
#include "ip_app_valid/interface_config.h"
#include "ip_app_valid/interface_type.h"
#include "ip_app_valid/static_route_config.h"

namespace ip_application {
namespace config_valid {

class ValidateConfig {
  public:
    const std::string& error() const { return error_; }

    // Interface addresses of one kind: validity, duplicates, overlaps within
    // the kind, static route next hops, then overlaps with the other kinds.
    // 0 accepts, -1 refuses.
    int32_t ValidateInterfaceIPv4(const Config& config, InterfaceType type);
    int32_t ValidateInterfaceIPv6(const Config& config, InterfaceType type);

    bool InterfaceIPv4IsValid(const Interface& intf);
    bool InterfaceHasDuplicateIpv4(const Interface& intf);
    bool InterfaceHasDuplicateIpv6(const Interface& intf);
    bool InterfaceIPv4Overlap(const Interface& first, const Interface& second);
    bool InterfaceIPv6Overlap(const Interface& first, const Interface& second);
    bool InterfaceIPv4Overlap(const InterfaceConfig& own, const std::vector<InterfaceConfig*>& all);
    bool InterfaceIPv6Overlap(const InterfaceConfig& own, const std::vector<InterfaceConfig*>& all);

    // Static routes: next hops that equal an interface address, the route
    // budget, output interfaces that lose their lower layer. 0 or -1.
    int32_t ValidateStaticRoute(const Config& config);
    int32_t ValidateStaticRouteNextHop(const Config& config);
    int32_t ValidateStaticRouteLimit(const Config& config);
    int32_t ValidateStaticRouteOutputIntf(const Config& config);
    bool InterfaceIPv4MatchStaticRouteNextHop(const Interface& intf,
                                              const StaticRouteConfig& routes);
    bool InterfaceIPv6MatchStaticRouteNextHop(const Interface& intf,
                                              const StaticRouteConfig& routes);
    int32_t InterfaceMatchStaticRouteOutputIntf(const Interface& intf,
                                                const StaticRouteList& routes);

    // OSPFv2 assignments: addresses and VRF of assigned interfaces. 0 or -1;
    // the per-reader checks return true when they pass.
    int32_t ValidateOspfv2(const Config& config);
    bool ValidateOspfv2CrossIfL3(const L3Config& l3, const Ospfv2Config& ospf);
    bool ValidateOspfv2CrossIfLo(const LoConfig& lo, const Ospfv2Config& ospf);
    int32_t ValidateOspfv2Vrf(const Config& config);
    bool ValidateOspfv2CrossIfL3Vrf(const L3Config& l3, const Ospfv2Config& ospf);
    bool ValidateOspfv2CrossIfLoVrf(const LoConfig& lo, const Ospfv2Config& ospf);

  private:
    // The checks of one address family, so that both families run one
    // sequence over the interfaces of a kind.
    struct FamilyChecks;
    int32_t ValidateInterfaces(const Config& config, InterfaceType type,
                               const FamilyChecks& family);

    // Replaces the error text with text.
    void SetError(std::string text);
    // True when there is a failure text, which then replaces the error text.
    bool Fails(std::optional<std::string> failure);

    std::string error_;
};

}  // namespace config_valid
}  // namespace ip_application

#endif  // IP_APP_VALID_VALIDATE_CONFIG_H
