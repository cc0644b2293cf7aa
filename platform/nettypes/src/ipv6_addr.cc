#include "nettypes/ipv6_addr.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <iterator>

#include "nettypes/ipv4_addr.h"

namespace nettypes {
namespace {

constexpr std::size_t kGroups = 8;
// An IPv4-mapped address carries its IPv4 address in the last two groups.
constexpr std::size_t kGroupsBeforeIpv4 = 6;

using Groups = std::array<uint16_t, kGroups>;

Groups GroupsOf(const in6_addr& addr) {
    Groups groups{};
    for (std::size_t i = 0; i < kGroups; ++i) {
        groups[i] = static_cast<uint16_t>(addr.s6_addr[2 * i] << 8 | addr.s6_addr[2 * i + 1]);
    }
    return groups;
}

// ::ffff:0:0/96
bool IsIpv4Mapped(const Groups& groups) {
    const auto marker = groups.begin() + kGroupsBeforeIpv4 - 1;
    return std::all_of(groups.begin(), marker, [](uint16_t group) { return group == 0; }) &&
           *marker == 0xFFFF;
}

uint32_t EmbeddedIpv4(const Groups& groups) {
    return static_cast<uint32_t>(groups[kGroupsBeforeIpv4]) << 16 | groups[kGroupsBeforeIpv4 + 1];
}

struct ZeroRun {
    std::size_t begin = 0;
    std::size_t length = 0;
};

// The longest run of two or more zero groups among the first `count`, the
// first one on a tie; length 0 when there is none.
ZeroRun LongestZeroRun(const Groups& groups, std::size_t count) {
    ZeroRun best;
    ZeroRun current;
    for (std::size_t i = 0; i < count; ++i) {
        if (groups[i] != 0) {
            current.length = 0;
            continue;
        }
        if (current.length == 0) {
            current.begin = i;
        }
        ++current.length;
        if (current.length > best.length) {
            best = current;
        }
    }
    return best.length >= 2 ? best : ZeroRun{};
}

void AppendHex(std::string& text, uint16_t group) {
    char digits[sizeof "ffff"];
    std::snprintf(digits, sizeof digits, "%x", static_cast<unsigned>(group));
    text += digits;
}

// The first `count` groups in hexadecimal with the longest zero run
// shortened to "::".
std::string FormatGroups(const Groups& groups, std::size_t count) {
    const ZeroRun run = LongestZeroRun(groups, count);
    std::string text;
    for (std::size_t i = 0; i < count;) {
        if (run.length != 0 && i == run.begin) {
            text += "::";
            i += run.length;
            continue;
        }
        if (!text.empty() && text.back() != ':') {
            text += ':';
        }
        AppendHex(text, groups[i]);
        ++i;
    }
    return text;
}

}  // namespace

std::string IPv6Addr::to_string() const {
    const Groups groups = GroupsOf(addr_);
    if (IsIpv4Mapped(groups)) {
        return FormatGroups(groups, kGroupsBeforeIpv4) + ':' +
               IPv4Addr(EmbeddedIpv4(groups)).to_string();
    }
    return FormatGroups(groups, kGroups);
}

bool IPv6Addr::is_unspecified() const {
    return std::all_of(std::begin(addr_.s6_addr), std::end(addr_.s6_addr),
                       [](uint8_t byte) { return byte == 0; });
}

bool IPv6Addr::operator==(const IPAddr& other) const {
    const auto* same_family = dynamic_cast<const IPv6Addr*>(&other);
    return same_family != nullptr && *this == *same_family;
}

bool IPv6Addr::operator==(const IPv6Addr& other) const {
    return std::equal(std::begin(addr_.s6_addr), std::end(addr_.s6_addr),
                      std::begin(other.addr_.s6_addr));
}

}  // namespace nettypes
