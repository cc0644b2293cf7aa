// An IPv6 address with a prefix length, such as 2001:db8::1/64. The address
// keeps its host bits.
#ifndef NETTYPES_IPV6_ADDR_MASK_H
#define NETTYPES_IPV6_ADDR_MASK_H

#include <netinet/in.h>

#include <ostream>
#include <string>

#include "nettypes/ip_addr_mask.h"
#include "nettypes/ipv6_addr.h"

namespace nettypes {

// Prefix lengths above 128 are kept and printed as given and act as 128 in
// every computation.
class IPv6AddrMask : public IPAddrMask {
  public:
    IPv6AddrMask() = default;  // ::/0
    IPv6AddrMask(const in6_addr& addr, unsigned prefix_len)
        : addr_(addr), prefix_len_(prefix_len) {}

    void set_addr(const in6_addr& addr) { addr_.set_addr(addr); }
    void set_prefix_len(unsigned prefix_len) { prefix_len_ = prefix_len; }
    const IPv6Addr& addr() const { return addr_; }

    std::string to_string() const override;
    bool IsUnspecified() const override { return addr_.is_unspecified(); }
    unsigned prefix_len() const override { return prefix_len_; }
    bool IsNetworkAddr() const override;
    bool IsBroadcastAddr() const override;

    // True when the two prefixes share an address: the shorter prefix
    // contains the other's network.
    bool Overlap(const IPv6AddrMask& other) const;
    // Same address and same prefix length.
    bool operator==(const IPv6AddrMask& other) const;
    bool operator!=(const IPv6AddrMask& other) const { return !(*this == other); }

  private:
    IPv6Addr addr_;
    unsigned prefix_len_ = 0;
};

std::ostream& operator<<(std::ostream& out, const IPv6AddrMask& value);

}  // namespace nettypes

#endif  // NETTYPES_IPV6_ADDR_MASK_H
