// GenericConfig's converters of single ConfD values, as the route table's
// keys deliver them: addresses as binary values in network order, prefix
// lengths as 32-bit integers, VRFs as component identifiers.
#include "ip_app_valid/confd_api.h"

#include <id_vrf.h>

#include <algorithm>
#include <array>
#include <cstring>

#include "ip_app_valid/generic_config.h"
#include "read_value.h"

namespace ip_application {
namespace config_valid {

namespace {

constexpr const char* kVrfConfigPath = "/metacli-internal:internal/metacli-internal:vrf-config";

// The first N bytes of a binary value; bytes the value lacks read as zero.
template <size_t N>
std::array<unsigned char, N> LeadingBytes(const confd_value_t& value) {
    std::array<unsigned char, N> bytes{};
    const size_t available = std::min<size_t>(N, value.val.buf.size);
    if (available != 0) {
        std::memcpy(bytes.data(), value.val.buf.ptr, available);
    }
    return bytes;
}

}  // namespace

nettypes::IPv4Addr GenericConfig::get_ipv4_addr(const confd_value_t& addr) const {
    nettypes::IPv4Addr ipv4;
    if (addr.type == C_BINARY) {
        const auto bytes = LeadingBytes<4>(addr);
        ipv4.set_addr(static_cast<unsigned>(bytes[0]) << 24 | bytes[1] << 16 | bytes[2] << 8 |
                      bytes[3]);
    }
    return ipv4;
}

nettypes::IPv6Addr GenericConfig::get_ipv6_addr(const confd_value_t& addr) const {
    nettypes::IPv6Addr ipv6;
    if (addr.type == C_BINARY) {
        const auto bytes = LeadingBytes<sizeof(in6_addr)>(addr);
        in6_addr raw;
        std::memcpy(&raw, bytes.data(), sizeof raw);
        ipv6.set_addr(raw);
    }
    return ipv6;
}

nettypes::IPv4AddrMask GenericConfig::get_ipv4_addr_mask(const confd_value_t& addr,
                                                         const confd_value_t& prefix) const {
    if (addr.type != C_BINARY || prefix.type != C_INT32) {
        return nettypes::IPv4AddrMask();
    }
    return nettypes::IPv4AddrMask(get_ipv4_addr(addr).to_uint32(), CONFD_GET_INT32(&prefix));
}

nettypes::IPv6AddrMask GenericConfig::get_ipv6_addr_mask(const confd_value_t& addr,
                                                         const confd_value_t& prefix) const {
    if (addr.type != C_BINARY || prefix.type != C_INT32) {
        return nettypes::IPv6AddrMask();
    }
    return nettypes::IPv6AddrMask(get_ipv6_addr(addr).addr(), CONFD_GET_INT32(&prefix));
}

std::string GenericConfig::get_hex_from_bin(const confd_value_t& value) const {
    static constexpr char kDigits[] = "0123456789abcdef";
    std::string hex;
    if (value.type != C_BINARY) {
        return hex;
    }
    hex.reserve(value.val.buf.size * 3);
    for (unsigned i = 0; i < value.val.buf.size; ++i) {
        if (i != 0) {
            hex += ':';
        }
        hex += kDigits[value.val.buf.ptr[i] >> 4];
        hex += kDigits[value.val.buf.ptr[i] & 0x0f];
    }
    return hex;
}

std::string GenericConfig::get_vrf_name_from_id(const confd_value_t& id) const {
    const std::string global = "global";
    if (id.type != C_UINT32) {
        return global;
    }
    const id_vrf_t index = IdVrfFromComponent(CONFD_GET_UINT32(&id));
    const std::string path =
        std::string(kVrfConfigPath) + "/indexTOstring{" + std::to_string(index) + "}/vname";
    ReadValue read;
    confd_value_t& vrf = read.value();
    if (maapi_exists(maapi_sock_, thandle(), "%s", path.c_str()) != 1 ||
        maapi_get_elem(maapi_sock_, thandle(), &vrf, "%s", path.c_str()) != CONFD_OK) {
        return global;
    }
    return BufferText(CONFD_GET_CBUFPTR(&vrf), vrf.val.buf.size);
}

}  // namespace config_valid
}  // namespace ip_application
