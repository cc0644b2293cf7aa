// Base of single IP addresses of either family.
#ifndef NETTYPES_IP_ADDR_H
#define NETTYPES_IP_ADDR_H

#include <ostream>
#include <string>

namespace nettypes {

class IPAddr {
  public:
    virtual ~IPAddr() = default;

    // Conventional text form: dotted decimal for IPv4, RFC 5952 for IPv6.
    virtual std::string to_string() const = 0;
    virtual bool is_unspecified() const = 0;
    // Equal when both are of the same family and hold the same address.
    virtual bool operator==(const IPAddr& other) const = 0;
    bool operator!=(const IPAddr& other) const { return !(*this == other); }

  protected:
    IPAddr() = default;
    IPAddr(const IPAddr&) = default;
    IPAddr& operator=(const IPAddr&) = default;
};

// Writes the text form of whichever family the address is.
std::ostream& operator<<(std::ostream& out, const IPAddr& addr);

}  // namespace nettypes

#endif  // NETTYPES_IP_ADDR_H
