// Static route records: an output interface, a VRF, a destination prefix and
// a next hop, of one address family.
#ifndef IP_APP_VALID_STATIC_ROUTE_H
#define IP_APP_VALID_STATIC_ROUTE_H

#include <nettypes/ip_addr.h>
#include <nettypes/ip_addr_mask.h>
#include <nettypes/ipv4_addr.h>
#include <nettypes/ipv4_addr_mask.h>
#include <nettypes/ipv6_addr.h>
#include <nettypes/ipv6_addr_mask.h>

#include <string>
#include <utility>

namespace ip_application {
namespace config_valid {

class StaticRoute {
  public:
    StaticRoute(std::string output_intf, std::string vrf_name)
        : output_intf_(std::move(output_intf)), vrf_name_(std::move(vrf_name)) {}
    virtual ~StaticRoute() = default;

    virtual const nettypes::IPAddrMask& network() const = 0;
    virtual const nettypes::IPAddr& next_hop() const = 0;

    // In the interface readers' form ("l3 5"); "" when the route names none.
    const std::string& output_intf() const { return output_intf_; }
    const std::string& vrf_name() const { return vrf_name_; }

  private:
    std::string output_intf_;
    std::string vrf_name_;
};

// A route of one address family: its destination prefix and next hop.
template <typename Network, typename NextHop>
class FamilyStaticRoute : public StaticRoute {
  public:
    FamilyStaticRoute(std::string output_intf, std::string vrf_name, Network network,
                      NextHop next_hop)
        : StaticRoute(std::move(output_intf), std::move(vrf_name)),
          network_(network),
          next_hop_(next_hop) {}

    const nettypes::IPAddrMask& network() const override { return network_; }
    const nettypes::IPAddr& next_hop() const override { return next_hop_; }

  private:
    Network network_;
    NextHop next_hop_;
};

class StaticRouteIPv4 : public FamilyStaticRoute<nettypes::IPv4AddrMask, nettypes::IPv4Addr> {
  public:
    using FamilyStaticRoute::FamilyStaticRoute;
};

class StaticRouteIPv6 : public FamilyStaticRoute<nettypes::IPv6AddrMask, nettypes::IPv6Addr> {
  public:
    using FamilyStaticRoute::FamilyStaticRoute;
};

}  // namespace config_valid
}  // namespace ip_application

#endif  // IP_APP_VALID_STATIC_ROUTE_H
