// An IPv4 address with a prefix length, such as 10.0.0.1/24. The address
// keeps its host bits.
#ifndef NETTYPES_IPV4_ADDR_MASK_H
#define NETTYPES_IPV4_ADDR_MASK_H

#include <ostream>
#include <string>

#include "nettypes/ip_addr_mask.h"
#include "nettypes/ipv4_addr.h"

namespace nettypes {

// Prefix lengths above 32 are kept and printed as given and act as 32 in
// every computation.
class IPv4AddrMask : public IPAddrMask {
  public:
    IPv4AddrMask() = default;  // 0.0.0.0/0
    // addr is the numeric value of IPv4Addr.
    IPv4AddrMask(unsigned addr, unsigned prefix_len) : addr_(addr), prefix_len_(prefix_len) {}

    void set_addr(unsigned addr) { addr_.set_addr(addr); }
    void set_prefix_len(unsigned prefix_len) { prefix_len_ = prefix_len; }
    const IPv4Addr& addr() const { return addr_; }

    std::string to_string() const override;
    bool IsUnspecified() const override { return addr_.is_unspecified(); }
    unsigned prefix_len() const override { return prefix_len_; }
    bool IsNetworkAddr() const override;
    bool IsBroadcastAddr() const override;

    // True when the two prefixes share an address: the shorter prefix
    // contains the other's network.
    bool Overlap(const IPv4AddrMask& other) const;
    // Same address and same prefix length.
    bool operator==(const IPv4AddrMask& other) const;
    bool operator!=(const IPv4AddrMask& other) const { return !(*this == other); }

  private:
    IPv4Addr addr_;
    unsigned prefix_len_ = 0;
};

std::ostream& operator<<(std::ostream& out, const IPv4AddrMask& value);

}  // namespace nettypes

#endif  // NETTYPES_IPV4_ADDR_MASK_H
