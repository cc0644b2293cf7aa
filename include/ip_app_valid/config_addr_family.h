// The address family a reader reads.
#ifndef IP_APP_VALID_CONFIG_ADDR_FAMILY_H
#define IP_APP_VALID_CONFIG_ADDR_FAMILY_H

#include <cstdint>

namespace ip_application {
namespace config_valid {

enum class ConfigAddrFamily : int32_t {
    IPv4 = 4,
    IPv6 = 6,
};

}  // namespace config_valid
}  // namespace ip_application

#endif  // IP_APP_VALID_CONFIG_ADDR_FAMILY_H
