#include "nettypes/ipv6_addr_mask.h"

#include <algorithm>

#include "prefix_bits.h"

namespace nettypes {

std::string IPv6AddrMask::to_string() const {
    return JoinPrefixLen(addr_, prefix_len_);
}

bool IPv6AddrMask::IsNetworkAddr() const {
    const in6_addr& addr = addr_.addr();
    return prefix_bits::HostBitsAllZero(addr.s6_addr, sizeof addr.s6_addr, prefix_len_);
}

bool IPv6AddrMask::IsBroadcastAddr() const {
    const in6_addr& addr = addr_.addr();
    return prefix_bits::HostBitsAllOne(addr.s6_addr, sizeof addr.s6_addr, prefix_len_);
}

bool IPv6AddrMask::Overlap(const IPv6AddrMask& other) const {
    const in6_addr& addr = addr_.addr();
    return prefix_bits::SameNetwork(addr.s6_addr, other.addr_.addr().s6_addr, sizeof addr.s6_addr,
                                    std::min(prefix_len_, other.prefix_len_));
}

bool IPv6AddrMask::operator==(const IPv6AddrMask& other) const {
    return addr_ == other.addr_ && prefix_len_ == other.prefix_len_;
}

std::ostream& operator<<(std::ostream& out, const IPv6AddrMask& value) {
    return out << value.to_string();
}

}  // namespace nettypes
