// Base of an address with a prefix length, of either family.
#ifndef NETTYPES_IP_ADDR_MASK_H
#define NETTYPES_IP_ADDR_MASK_H

#include <ostream>
#include <string>

#include "nettypes/ip_addr.h"

namespace nettypes {

class IPAddrMask {
  public:
    virtual ~IPAddrMask() = default;

    // "address/length", the address in the family's conventional text form.
    virtual std::string to_string() const = 0;
    // True when the address part is all zero, whatever the prefix length.
    virtual bool IsUnspecified() const = 0;
    virtual unsigned prefix_len() const = 0;
    // True when all host bits of the address are zero. A full-length prefix
    // has no host bits, so it is both a network and a broadcast address.
    virtual bool IsNetworkAddr() const = 0;
    // True when all host bits of the address are one.
    virtual bool IsBroadcastAddr() const = 0;

  protected:
    IPAddrMask() = default;
    IPAddrMask(const IPAddrMask&) = default;
    IPAddrMask& operator=(const IPAddrMask&) = default;

    // The common text form "address/length".
    static std::string JoinPrefixLen(const IPAddr& addr, unsigned prefix_len);
};

// Writes the text form of whichever family the value is.
std::ostream& operator<<(std::ostream& out, const IPAddrMask& value);

}  // namespace nettypes

#endif  // NETTYPES_IP_ADDR_MASK_H
