// Static route checks: next hops that equal an own interface address in the
// same VRF, the route budget, and output interfaces that lose their lower
// layer.
#include "ip_app_valid/validate_config.h"

#include <list>
#include <sstream>

#include "ip_app_valid/validate_logger.h"

namespace ip_application {
namespace config_valid {

namespace {

// The route budget: an IPv6 route costs two units.
constexpr uint32_t kMaxStaticRouteUnits = 1000;
constexpr uint32_t kIPv6RouteUnits = 2;

// The first route of the VRF of the interface, in list order, whose next
// hop equals one of the interface's host addresses (the first such address
// in list order); a next hop that merely lies in the interface's subnet is
// fine. first_via finds a VRF's first route through an address.
template <typename Mask, typename FirstVia>
std::optional<std::string> NextHopFailure(const Interface& intf, const std::list<Mask>& addrs,
                                          FirstVia first_via, const char* family_text) {
    std::optional<StaticRouteConfig::RouteAt> first;
    const Mask* matched = nullptr;
    for (const Mask& addr : addrs) {
        const std::optional<StaticRouteConfig::RouteAt> route =
            first_via(intf.vrf_name, addr.addr());
        if (route && (!first || route->position < first->position)) {
            first = route;
            matched = &addr;
        }
    }
    if (!first) {
        return std::nullopt;
    }
    std::ostringstream text;
    text << intf.name << family_text << *matched << " and static route " << first->route->network()
         << " next-hop " << first->route->next_hop() << " cannot have address conflict.";
    return text.str();
}

// True when failed is true for an interface, readers in list order.
template <typename Check>
bool AnyInterfaceFails(const Config& config, Check failed) {
    for (const InterfaceConfig* reader : config.interface_configs) {
        for (const Interface& intf : reader->interfaces()) {
            if (failed(intf)) {
                return true;
            }
        }
    }
    return false;
}

}  // namespace

int32_t ValidateConfig::ValidateStaticRoute(const Config& config) {
    // Both halves run; when both fail the limit's text, written last, stays.
    return ValidateStaticRouteNextHop(config) | ValidateStaticRouteLimit(config);
}

int32_t ValidateConfig::ValidateStaticRouteNextHop(const Config& config) {
    // One family only: with both read, IPv4 next hops are the ones compared.
    const StaticRouteConfig& routes = config.static_route_config;
    const bool conflict = AnyInterfaceFails(config, [&](const Interface& intf) {
        if (routes.ipv4_read()) {
            return InterfaceIPv4MatchStaticRouteNextHop(intf, routes);
        }
        return routes.ipv6_read() && InterfaceIPv6MatchStaticRouteNextHop(intf, routes);
    });
    return conflict ? -1 : 0;
}

int32_t ValidateConfig::ValidateStaticRouteLimit(const Config& config) {
    const uint32_t ipv4 = config.static_route_config.ipv4_entry_count();
    const uint32_t ipv6 = config.static_route_config.ipv6_entry_count();
    const uint32_t units = ipv4 + kIPv6RouteUnits * ipv6;
    if (units <= kMaxStaticRouteUnits) {
        return 0;
    }
    ValidateLogger::Log(
        "The maximum number of available static routes was exceeded! IPv4 static routes = %u; "
        "IPv6 static routes = %u;",
        ipv4, ipv6);
    SetError("The maximum number of available static routes was exceeded.");
    return -1;
}

int32_t ValidateConfig::ValidateStaticRouteOutputIntf(const Config& config) {
    const StaticRouteConfig& routes = config.static_route_config;
    const bool in_use = AnyInterfaceFails(config, [&](const Interface& intf) {
        // Only an interface that a route leaves through can fail.
        return IsZeroLimId(intf.lim_id) &&
               ((routes.IPv4RouteLeavesThrough(intf.name) &&
                 InterfaceMatchStaticRouteOutputIntf(intf, routes.ipv4_routes()) != 0) ||
                (routes.IPv6RouteLeavesThrough(intf.name) &&
                 InterfaceMatchStaticRouteOutputIntf(intf, routes.ipv6_routes()) != 0));
    });
    return in_use ? -1 : 0;
}

bool ValidateConfig::InterfaceIPv4MatchStaticRouteNextHop(const Interface& intf,
                                                          const StaticRouteConfig& routes) {
    const auto first_via = [&routes](const std::string& vrf_name, const nettypes::IPv4Addr& addr) {
        return routes.FirstIPv4Via(vrf_name, addr);
    };
    return Fails(NextHopFailure(intf, intf.ipv4_addrs, first_via, " ipv4 address "));
}

bool ValidateConfig::InterfaceIPv6MatchStaticRouteNextHop(const Interface& intf,
                                                          const StaticRouteConfig& routes) {
    const auto first_via = [&routes](const std::string& vrf_name, const nettypes::IPv6Addr& addr) {
        return routes.FirstIPv6Via(vrf_name, addr);
    };
    return Fails(NextHopFailure(intf, intf.ipv6_addrs, first_via, " ipv6 address "));
}

int32_t ValidateConfig::InterfaceMatchStaticRouteOutputIntf(const Interface& intf,
                                                            const StaticRouteList& routes) {
    for (const std::shared_ptr<StaticRoute>& route : routes) {
        if (route->output_intf() == intf.name && IsZeroLimId(intf.lim_id)) {
            SetError(intf.name +
                     " is being used by a static route. Lower-layer-if cannot be removed from this "
                     "interface");
            return 1;
        }
    }
    return 0;
}

}  // namespace config_valid
}  // namespace ip_application
