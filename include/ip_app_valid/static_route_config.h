// Reads the static route table of the candidate configuration into one list
// per address family and counts the table's entries of each family.
#ifndef IP_APP_VALID_STATIC_ROUTE_CONFIG_H
#define IP_APP_VALID_STATIC_ROUTE_CONFIG_H

#include <cstdint>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "ip_app_valid/generic_config.h"
#include "ip_app_valid/static_route.h"

namespace ip_application {
namespace config_valid {

using StaticRouteList = std::list<std::shared_ptr<StaticRoute>>;

class StaticRouteConfig : public GenericConfig {
  public:
    // Positions of the route table's keys in a cursor's key array.
    static constexpr int kVrfId = 0;
    static constexpr int kNetworkAddrType = 1;
    static constexpr int kNetworkAddr = 2;
    static constexpr int kNetworkPrefixLenId = 3;
    static constexpr int kFteIndex = 4;
    static constexpr int kNextHopAddr = 5;

    void ReadConfig(ConfigAddrFamily family) override;

    const StaticRouteList& ipv4_routes() const { return ipv4_routes_; }
    const StaticRouteList& ipv6_routes() const { return ipv6_routes_; }

    // Appends a route to its family's list.
    void Append(std::shared_ptr<StaticRouteIPv4> route);
    void Append(std::shared_ptr<StaticRouteIPv6> route);

    // A route and its position in its family's list.
    struct RouteAt {
        size_t position;
        const StaticRoute* route;
    };
    // The first route of the family's list in that VRF whose next hop is
    // that address.
    std::optional<RouteAt> FirstIPv4Via(const std::string& vrf_name,
                                        const nettypes::IPv4Addr& next_hop) const;
    std::optional<RouteAt> FirstIPv6Via(const std::string& vrf_name,
                                        const nettypes::IPv6Addr& next_hop) const;
    // True when a route of the family leaves through the named interface.
    bool IPv4RouteLeavesThrough(const std::string& intf_name) const;
    bool IPv6RouteLeavesThrough(const std::string& intf_name) const;
    // Table entries of each family seen by the last read, stored or not.
    uint32_t ipv4_entry_count() const { return ipv4_entry_count_; }
    uint32_t ipv6_entry_count() const { return ipv6_entry_count_; }

  private:
    // What the checks look up in one family's list.
    struct Lookups {
        void Add(const StaticRoute& route, size_t position);
        std::optional<RouteAt> FirstVia(const std::string& vrf_name,
                                        const nettypes::IPAddr& next_hop) const;

        // By next hop and VRF.
        std::unordered_map<std::string, RouteAt> first_via;
        std::unordered_set<std::string> output_intfs;
    };

    StaticRouteList ipv4_routes_;
    StaticRouteList ipv6_routes_;
    Lookups ipv4_lookups_;
    Lookups ipv6_lookups_;
    uint32_t ipv4_entry_count_ = 0;
    uint32_t ipv6_entry_count_ = 0;
};

}  // namespace config_valid
}  // namespace ip_application

#endif  // IP_APP_VALID_STATIC_ROUTE_CONFIG_H
