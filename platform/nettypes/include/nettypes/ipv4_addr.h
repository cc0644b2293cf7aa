// One IPv4 address.
#ifndef NETTYPES_IPV4_ADDR_H
#define NETTYPES_IPV4_ADDR_H

#include <array>
#include <cstdint>
#include <string>

#include "nettypes/ip_addr.h"

namespace nettypes {

// The address is held as its numeric value: the first octet is the most
// significant byte, so 10.0.0.1 is 0x0A000001 and 0.0.0.1 is 1. This is the
// value of the four address bytes read in network (big-endian) order.
class IPv4Addr : public IPAddr {
  public:
    IPv4Addr() = default;  // 0.0.0.0
    explicit IPv4Addr(uint32_t value) : value_(value) {}

    void set_addr(unsigned value) { value_ = value; }
    uint32_t to_uint32() const { return value_; }
    // The four address bytes, first octet first.
    std::array<uint8_t, 4> to_bytes() const;

    std::string to_string() const override;
    bool is_unspecified() const override { return value_ == 0; }
    bool operator==(const IPAddr& other) const override;
    bool operator==(const IPv4Addr& other) const { return value_ == other.value_; }
    bool operator!=(const IPv4Addr& other) const { return !(*this == other); }
    using IPAddr::operator!=;

  private:
    uint32_t value_ = 0;
};

}  // namespace nettypes

#endif  // NETTYPES_IPV4_ADDR_H
