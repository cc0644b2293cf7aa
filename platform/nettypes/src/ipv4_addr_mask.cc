#include "nettypes/ipv4_addr_mask.h"

#include <algorithm>

#include "prefix_bits.h"

namespace nettypes {

std::string IPv4AddrMask::to_string() const {
    return JoinPrefixLen(addr_, prefix_len_);
}

bool IPv4AddrMask::IsNetworkAddr() const {
    const auto bytes = addr_.to_bytes();
    return prefix_bits::HostBitsAllZero(bytes.data(), bytes.size(), prefix_len_);
}

bool IPv4AddrMask::IsBroadcastAddr() const {
    const auto bytes = addr_.to_bytes();
    return prefix_bits::HostBitsAllOne(bytes.data(), bytes.size(), prefix_len_);
}

bool IPv4AddrMask::Overlap(const IPv4AddrMask& other) const {
    const auto bytes = addr_.to_bytes();
    const auto other_bytes = other.addr_.to_bytes();
    return prefix_bits::SameNetwork(bytes.data(), other_bytes.data(), bytes.size(),
                                    std::min(prefix_len_, other.prefix_len_));
}

bool IPv4AddrMask::operator==(const IPv4AddrMask& other) const {
    return addr_ == other.addr_ && prefix_len_ == other.prefix_len_;
}

std::ostream& operator<<(std::ostream& out, const IPv4AddrMask& value) {
    return out << value.to_string();
}

}  // namespace nettypes
