// The kinds of interfaces the plug-in validates.
#ifndef IP_APP_VALID_INTERFACE_TYPE_H
#define IP_APP_VALID_INTERFACE_TYPE_H

#include <cstdint>

namespace ip_application {
namespace config_valid {

enum class InterfaceType : int32_t {
    Mgmt = 0,
    L3 = 1,
    Lo = 2,
    Unknown = 3,  // a keypath that names none of the three
};

}  // namespace config_valid
}  // namespace ip_application

#endif  // IP_APP_VALID_INTERFACE_TYPE_H
