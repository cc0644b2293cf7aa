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
void AppendRoute(const GenericConfig& reader, maapi_cursor& cursor, StaticRouteList& routes,
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
    routes.push_back(std::make_shared<Route>(reader.get_intf_name_from_route(cursor),
                                             std::move(vrf_name), network, next_hop));
}

}  // namespace

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
                    AppendRoute<StaticRouteIPv4>(*this, cursor, ipv4_routes_,
                                                 &GenericConfig::get_ipv4_addr_mask,
                                                 &GenericConfig::get_ipv4_addr);
                }
                break;
            case kAddrTypeIPv6:
                ++ipv6_entry_count_;
                if (family == ConfigAddrFamily::IPv6) {
                    AppendRoute<StaticRouteIPv6>(*this, cursor, ipv6_routes_,
                                                 &GenericConfig::get_ipv6_addr_mask,
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
