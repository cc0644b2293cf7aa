#include "ip_app_valid/static_route_config.h"

#include <memory>

#include "cursor_walk.h"

namespace ip_application {
namespace config_valid {

namespace {

constexpr const char* kStaticRouteTablePath = "/DC-RTM-MIB/rtmStaticRtTable/rtmStaticRtEntry";

// Values of the table's network address type key.
constexpr int32_t kAddrTypeIPv4 = 1;
constexpr int32_t kAddrTypeIPv6 = 2;

// Appends the route the cursor stands on, read in the order VRF, network,
// next hop and, for a specified next hop only, output interface. A route
// without a next hop is not stored.
template <typename Route, typename Mask, typename Addr>
void AppendRoute(StaticRouteConfig& reader, maapi_cursor& cursor,
                 Mask (GenericConfig::*read_network)(const confd_value_t&, const confd_value_t&)
                     const,
                 Addr (GenericConfig::*read_next_hop)(const confd_value_t&) const) {
    std::string vrf_name = reader.get_vrf_name_from_id(cursor.keys[StaticRouteConfig::kVrfId]);
    const Mask network =
        (reader.*read_network)(cursor.keys[StaticRouteConfig::kNetworkAddr],
                               cursor.keys[StaticRouteConfig::kNetworkPrefixLenId]);
    const Addr next_hop = (reader.*read_next_hop)(cursor.keys[StaticRouteConfig::kNextHopAddr]);
    if (next_hop.is_unspecified()) {
        return;
    }
    reader.Append(std::make_shared<Route>(reader.get_intf_name_from_route(cursor),
                                          std::move(vrf_name), network, next_hop));
}

// The key of a next hop in a VRF: the address's text has no blank.
std::string NextHopKey(const std::string& vrf_name, const nettypes::IPAddr& next_hop) {
    return next_hop.to_string() + " " + vrf_name;
}

}  // namespace

void StaticRouteConfig::Lookups::Add(const StaticRoute& route, size_t position) {
    first_via.emplace(NextHopKey(route.vrf_name(), route.next_hop()), RouteAt{position, &route});
    output_intfs.insert(route.output_intf());
}

std::optional<StaticRouteConfig::RouteAt> StaticRouteConfig::Lookups::FirstVia(
    const std::string& vrf_name, const nettypes::IPAddr& next_hop) const {
    const auto found = first_via.find(NextHopKey(vrf_name, next_hop));
    return found == first_via.end() ? std::nullopt : std::optional<RouteAt>(found->second);
}

void StaticRouteConfig::Append(std::shared_ptr<StaticRouteIPv4> route) {
    ipv4_lookups_.Add(*route, ipv4_routes_.size());
    ipv4_routes_.push_back(std::move(route));
}

void StaticRouteConfig::Append(std::shared_ptr<StaticRouteIPv6> route) {
    ipv6_lookups_.Add(*route, ipv6_routes_.size());
    ipv6_routes_.push_back(std::move(route));
}

std::optional<StaticRouteConfig::RouteAt> StaticRouteConfig::FirstIPv4Via(
    const std::string& vrf_name, const nettypes::IPv4Addr& next_hop) const {
    return ipv4_lookups_.FirstVia(vrf_name, next_hop);
}

std::optional<StaticRouteConfig::RouteAt> StaticRouteConfig::FirstIPv6Via(
    const std::string& vrf_name, const nettypes::IPv6Addr& next_hop) const {
    return ipv6_lookups_.FirstVia(vrf_name, next_hop);
}

bool StaticRouteConfig::IPv4RouteLeavesThrough(const std::string& intf_name) const {
    return ipv4_lookups_.output_intfs.count(intf_name) != 0;
}

bool StaticRouteConfig::IPv6RouteLeavesThrough(const std::string& intf_name) const {
    return ipv6_lookups_.output_intfs.count(intf_name) != 0;
}

void StaticRouteConfig::ReadConfig(ConfigAddrFamily family) {
    if (maapi_exists(maapi_sock_, thandle(), "%s", kStaticRouteTablePath) != 1) {
        return;
    }
    CursorWalk walk(maapi_sock_, thandle(), kStaticRouteTablePath);
    // Every read counts the rows of both families, stored or not.
    ipv4_entry_count_ = 0;
    ipv6_entry_count_ = 0;
    for (walk.Next(); walk.HasEntry(); walk.Next()) {
        maapi_cursor& cursor = walk.cursor();
        switch (CONFD_GET_ENUM_VALUE(&cursor.keys[kNetworkAddrType])) {
            case kAddrTypeIPv4:
                ++ipv4_entry_count_;
                if (family == ConfigAddrFamily::IPv4) {
                    AppendRoute<StaticRouteIPv4>(*this, cursor, &GenericConfig::get_ipv4_addr_mask,
                                                 &GenericConfig::get_ipv4_addr);
                }
                break;
            case kAddrTypeIPv6:
                ++ipv6_entry_count_;
                if (family == ConfigAddrFamily::IPv6) {
                    AppendRoute<StaticRouteIPv6>(*this, cursor, &GenericConfig::get_ipv6_addr_mask,
                                                 &GenericConfig::get_ipv6_addr);
                }
                break;
            default:
                break;
        }
    }
}

}  // namespace config_valid
}  // namespace ip_application
