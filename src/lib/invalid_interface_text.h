// The operator's text for a callback on a node that is none of the three
// interface kinds, shared by every rule that refuses one.
#ifndef IP_APP_VALID_INVALID_INTERFACE_TEXT_H
#define IP_APP_VALID_INVALID_INTERFACE_TEXT_H

namespace ip_application {
namespace config_valid {

inline constexpr const char kInvalidInterfaceText[] =
    "invalid interface being handled by IP-App validation";

}  // namespace config_valid
}  // namespace ip_application

#endif  // IP_APP_VALID_INVALID_INTERFACE_TEXT_H
