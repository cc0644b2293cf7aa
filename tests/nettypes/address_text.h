// Addresses written as text in the tests. They are read with the C
// library's inet_pton, so expected values never come from the code under
// test; the family follows the text (a ':' makes it IPv6).
#ifndef NETTYPES_TEST_ADDRESS_TEXT_H
#define NETTYPES_TEST_ADDRESS_TEXT_H

#include <arpa/inet.h>

#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <type_traits>

#include "nettypes/nettypes.h"

namespace nettypes_test {

inline bool IsIpv6Text(const std::string& text) {
    return text.find(':') != std::string::npos;
}

template <typename Bytes>
Bytes Parse(int family, const std::string& text) {
    Bytes bytes{};
    if (inet_pton(family, text.c_str(), &bytes) != 1) {
        throw std::invalid_argument("not an address: '" + text + "'");
    }
    return bytes;
}

// The numeric value of a dotted-decimal address ("10.0.0.1" is 0x0A000001).
inline uint32_t Ipv4Value(const std::string& text) {
    return ntohl(Parse<in_addr>(AF_INET, text).s_addr);
}

inline std::unique_ptr<nettypes::IPAddr> Address(const std::string& text) {
    if (IsIpv6Text(text)) {
        return std::make_unique<nettypes::IPv6Addr>(Parse<in6_addr>(AF_INET6, text));
    }
    return std::make_unique<nettypes::IPv4Addr>(Ipv4Value(text));
}

// "address/length" as an IPv4AddrMask or IPv6AddrMask.
template <typename Mask>
Mask Prefix(const std::string& text) {
    const auto slash = text.find('/');
    if (slash == std::string::npos) {
        throw std::invalid_argument("no prefix length: '" + text + "'");
    }
    const auto addr = text.substr(0, slash);
    const auto prefix_len = static_cast<unsigned>(std::stoul(text.substr(slash + 1)));
    if constexpr (std::is_same_v<Mask, nettypes::IPv6AddrMask>) {
        return {Parse<in6_addr>(AF_INET6, addr), prefix_len};
    } else {
        return {Ipv4Value(addr), prefix_len};
    }
}

inline std::unique_ptr<nettypes::IPAddrMask> AnyPrefix(const std::string& text) {
    if (IsIpv6Text(text)) {
        return std::make_unique<nettypes::IPv6AddrMask>(Prefix<nettypes::IPv6AddrMask>(text));
    }
    return std::make_unique<nettypes::IPv4AddrMask>(Prefix<nettypes::IPv4AddrMask>(text));
}

// What the stream operator writes for a value.
template <typename Value>
std::string Streamed(const Value& value) {
    std::ostringstream out;
    out << value;
    return out.str();
}

}  // namespace nettypes_test

#endif  // NETTYPES_TEST_ADDRESS_TEXT_H
