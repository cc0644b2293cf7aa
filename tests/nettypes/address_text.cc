#include "address_text.h"

#include <arpa/inet.h>

#include <stdexcept>
#include <utility>

namespace nettypes_test {
namespace {

template <typename Bytes>
Bytes Parse(int family, const std::string& text) {
    Bytes bytes{};
    if (inet_pton(family, text.c_str(), &bytes) != 1) {
        throw std::invalid_argument("not an address: '" + text + "'");
    }
    return bytes;
}

std::pair<std::string, unsigned> SplitPrefix(const std::string& text) {
    const auto slash = text.find('/');
    if (slash == std::string::npos) {
        throw std::invalid_argument("no prefix length: '" + text + "'");
    }
    return {text.substr(0, slash), static_cast<unsigned>(std::stoul(text.substr(slash + 1)))};
}

}  // namespace

uint32_t Ipv4Value(const std::string& text) {
    return ntohl(Parse<in_addr>(AF_INET, text).s_addr);
}

in6_addr Ipv6Bytes(const std::string& text) {
    return Parse<in6_addr>(AF_INET6, text);
}

nettypes::IPv4AddrMask Ipv4Prefix(const std::string& text) {
    const auto [addr, prefix_len] = SplitPrefix(text);
    return {Ipv4Value(addr), prefix_len};
}

nettypes::IPv6AddrMask Ipv6Prefix(const std::string& text) {
    const auto [addr, prefix_len] = SplitPrefix(text);
    return {Ipv6Bytes(addr), prefix_len};
}

}  // namespace nettypes_test
