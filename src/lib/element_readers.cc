// GenericConfig's readers of single leaves. A leaf that does not exist or
// cannot be read gives the unset value; only a value of an unexpected type
// after a successful read stops the process.
#include "ip_app_valid/confd_api.h"

#include <arpa/inet.h>

#include "ip_app_valid/generic_config.h"
#include "read_value.h"

namespace ip_application {
namespace config_valid {

namespace {

// The address part of an address-and-length value in the form the address
// types take it: IPv4 as its numeric value, IPv6 as its bytes.
unsigned AddressOf(const confd_ipv4_prefix& prefix) {
    return ntohl(prefix.ip.s_addr);
}
const in6_addr& AddressOf(const confd_ipv6_prefix& prefix) {
    return prefix.ip6;
}

template <typename Mask, typename Prefix>
Mask ReadAddrMask(int maapi_sock, int thandle, const std::string& path,
                  int (*get_elem)(int, int, Prefix*, const char*, ...)) {
    Mask mask;
    if (maapi_exists(maapi_sock, thandle, "%s", path.c_str()) != 1) {
        return mask;
    }
    Prefix prefix{};
    if (get_elem(maapi_sock, thandle, &prefix, "%s", path.c_str()) != CONFD_OK) {
        return mask;
    }
    mask.set_addr(AddressOf(prefix));
    mask.set_prefix_len(prefix.len);
    return mask;
}

}  // namespace

nettypes::IPv4AddrMask GenericConfig::get_ipv4_addr_mask(const std::string& path) const {
    return ReadAddrMask<nettypes::IPv4AddrMask>(maapi_sock_, thandle(), path,
                                                maapi_get_ipv4_and_plen_elem);
}

nettypes::IPv6AddrMask GenericConfig::get_ipv6_addr_mask(const std::string& path) const {
    return ReadAddrMask<nettypes::IPv6AddrMask>(maapi_sock_, thandle(), path,
                                                maapi_get_ipv6_and_plen_elem);
}

limid_t GenericConfig::get_intf_lim_id(const std::string& path) const {
    limid_t lim_id{};
    ReadValue read;
    confd_value_t& confd_if_index = read.value();
    if (maapi_exists(maapi_sock_, thandle(), "%s", path.c_str()) != 1 ||
        maapi_get_elem(maapi_sock_, thandle(), &confd_if_index, "%s", path.c_str()) != CONFD_OK) {
        return lim_id;
    }
    limid_l3_vlan_from_components(&lim_id, CONFD_GET_INT32(&confd_if_index));
    return lim_id;
}

std::string GenericConfig::get_vrf_name(const std::string& path) const {
    if (maapi_exists(maapi_sock_, thandle(), "%s", path.c_str()) != 1) {
        return "global";
    }
    ReadValue read;
    confd_value_t& l3_vrf_name = read.value();
    if (maapi_get_elem(maapi_sock_, thandle(), &l3_vrf_name, "%s", path.c_str()) != CONFD_OK) {
        return "";
    }
    return BufferText(CONFD_GET_CBUFPTR(&l3_vrf_name), l3_vrf_name.val.buf.size);
}

}  // namespace config_valid
}  // namespace ip_application
