// The output interface of a static route, from the route table's companion
// list that holds it, in the interface readers' naming.
#include "ip_app_valid/confd_api.h"

#include "ip_app_valid/generic_config.h"
#include "ip_app_valid/static_route_config.h"
#include "read_value.h"

namespace ip_application {
namespace config_valid {

namespace {

constexpr int kNetworkAddr = StaticRouteConfig::kNetworkAddr;
constexpr int kNetworkPrefixLenId = StaticRouteConfig::kNetworkPrefixLenId;
constexpr int kFteIndex = StaticRouteConfig::kFteIndex;
constexpr int kNextHopAddr = StaticRouteConfig::kNextHopAddr;

// The route table writes an interface as its kind, one character and its
// number ("l3-7"); the interface readers use a blank there ("l3 7"). A name
// of two characters gets the blank appended; a shorter one throws
// std::out_of_range.
void ToInterfaceReaderForm(std::string& name) {
    name.replace(2, 1, " ");
}

}  // namespace

std::string GenericConfig::get_intf_name_from_route(maapi_cursor& cursor) const {
    const int32_t prefix_len = CONFD_GET_INT32(&cursor.keys[kNetworkPrefixLenId]);
    const uint32_t fte_index = CONFD_GET_UINT32(&cursor.keys[kFteIndex]);
    const std::string path = "/rtmStaticRtEntry-global{ " + std::to_string(fte_index) + " " +
                             get_hex_from_bin(cursor.keys[kNetworkAddr]) + " " +
                             std::to_string(prefix_len) + " " +
                             get_hex_from_bin(cursor.keys[kNextHopAddr]) + " }/interface-name";
    ReadValue read;
    confd_value_t& l3_intf_name = read.value();
    if (maapi_exists(maapi_sock_, thandle(), "%s", path.c_str()) != 1 ||
        maapi_get_elem(maapi_sock_, thandle(), &l3_intf_name, "%s", path.c_str()) != CONFD_OK) {
        return "";
    }
    std::string name = BufferText(CONFD_GET_CBUFPTR(&l3_intf_name), l3_intf_name.val.buf.size);
    ToInterfaceReaderForm(name);
    return name;
}

}  // namespace config_valid
}  // namespace ip_application
