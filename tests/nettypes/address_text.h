// Addresses written as text in the tests. They are read with the C
// library's inet_pton, so expected values never come from the code under
// test. Malformed text throws std::invalid_argument naming it.
#ifndef NETTYPES_TEST_ADDRESS_TEXT_H
#define NETTYPES_TEST_ADDRESS_TEXT_H

#include <netinet/in.h>

#include <cstdint>
#include <string>

#include "nettypes/ipv4_addr_mask.h"
#include "nettypes/ipv6_addr_mask.h"

namespace nettypes_test {

// The numeric value of a dotted-decimal address ("10.0.0.1" is 0x0A000001).
uint32_t Ipv4Value(const std::string& text);
in6_addr Ipv6Bytes(const std::string& text);

// "address/length"
nettypes::IPv4AddrMask Ipv4Prefix(const std::string& text);
nettypes::IPv6AddrMask Ipv6Prefix(const std::string& text);

}  // namespace nettypes_test

#endif  // NETTYPES_TEST_ADDRESS_TEXT_H
