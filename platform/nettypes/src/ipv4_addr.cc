#include "nettypes/ipv4_addr.h"

#include <charconv>

namespace nettypes {

std::array<uint8_t, 4> IPv4Addr::to_bytes() const {
    return {static_cast<uint8_t>(value_ >> 24), static_cast<uint8_t>(value_ >> 16),
            static_cast<uint8_t>(value_ >> 8), static_cast<uint8_t>(value_)};
}

std::string IPv4Addr::to_string() const {
    // At most "255.255.255.255": written in place, so the string is made once
    // and fits its inline buffer.
    char text[16];
    char* end = text;
    for (uint8_t octet : to_bytes()) {
        if (end != text) {
            *end++ = '.';
        }
        end = std::to_chars(end, text + sizeof text, octet).ptr;
    }
    return std::string(text, end);
}

bool IPv4Addr::operator==(const IPAddr& other) const {
    const auto* same_family = dynamic_cast<const IPv4Addr*>(&other);
    return same_family != nullptr && *this == *same_family;
}

}  // namespace nettypes
