#include "validation_point_table.h"

#include <cstring>

namespace ip_application {
namespace config_valid {

const std::array<ValidationPoint, 11> kValidationPoints = {{
    {validate_intf_l3_name, "intf_l3_name_validation"},
    {validate_intf_vrf, "intf_vrf_validation"},
    {validate_ipv4_addr, "ipv4_addr_validation"},
    {validate_ipv4_addr_cross_prot, "ipv4_addr_prot_cross_validation"},
    {validate_ipv4_addr_route, "ipv4_addr_route_validation"},
    {validate_ipv6_addr, "ipv6_addr_validation"},
    {validate_ipv6_addr_route, "ipv6_addr_route_validation"},
    {validate_ipv6_nd_ra_interval, "validate_ipv6_nd_ra_interval"},
    {validate_ipv6_nd_ra_lifetime, "validate_ipv6_nd_ra_lifetime"},
    {validate_route_l3_intf, "static_route_l3_intf_validation"},
    {validate_lower_layer_cross_prot, "lower_layer_prot_cross_validation"},
}};

ValidationHandler* FindValidationHandler(const char* point_name) {
    for (const ValidationPoint& point : kValidationPoints) {
        if (std::strncmp(point_name, point.name, std::strlen(point.name)) == 0) {
            return point.handler;
        }
    }
    return nullptr;
}

}  // namespace config_valid
}  // namespace ip_application
