// Reads the static route table of the candidate configuration into one list
// per address family and counts the table's entries of each family.
#ifndef IP_APP_VALID_STATIC_ROUTE_CONFIG_H
#define IP_APP_VALID_STATIC_ROUTE_CONFIG_H

#include <cstdint>
#include <list>
#include <memory>

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
    // Table entries of each family seen by the last read, stored or not.
    uint32_t ipv4_entry_count() const { return ipv4_entry_count_; }
    uint32_t ipv6_entry_count() const { return ipv6_entry_count_; }

  private:
    StaticRouteList ipv4_routes_;
    StaticRouteList ipv6_routes_;
    uint32_t ipv4_entry_count_ = 0;
    uint32_t ipv6_entry_count_ = 0;
};

}  // namespace config_valid
}  // namespace ip_application

#endif  // IP_APP_VALID_STATIC_ROUTE_CONFIG_H
