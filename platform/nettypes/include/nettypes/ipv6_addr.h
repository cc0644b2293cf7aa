// One IPv6 address.
#ifndef NETTYPES_IPV6_ADDR_H
#define NETTYPES_IPV6_ADDR_H

#include <netinet/in.h>

#include <string>

#include "nettypes/ip_addr.h"

namespace nettypes {

class IPv6Addr : public IPAddr {
  public:
    IPv6Addr() = default;  // ::
    explicit IPv6Addr(const in6_addr& addr) : addr_(addr) {}

    void set_addr(const in6_addr& addr) { addr_ = addr; }
    const in6_addr& addr() const { return addr_; }

    // RFC 5952: lower case, leading zeros dropped, the longest run of two or
    // more zero groups (the first if tied) shortened to "::". IPv4-mapped
    // addresses end in dotted decimal: "::ffff:192.0.2.1".
    std::string to_string() const override;
    bool is_unspecified() const override;
    bool operator==(const IPAddr& other) const override;
    bool operator==(const IPv6Addr& other) const;
    bool operator!=(const IPv6Addr& other) const { return !(*this == other); }
    using IPAddr::operator!=;

  private:
    in6_addr addr_{};
};

}  // namespace nettypes

#endif  // NETTYPES_IPV6_ADDR_H
