// Which of many interfaces hold overlapping prefixes, found by sorting their
// prefixes once instead of comparing every pair of interfaces.
//
// Two prefixes overlap exactly when one holds the other (the shorter one's
// network contains the longer one's). Sorted by network address, then by
// length, the prefixes that hold a given one are those still open before it,
// as with nested brackets: one pass with a stack of open prefixes meets every
// overlapping pair, the holder on the stack and the held one arriving.
#ifndef IP_APP_VALID_PREFIX_OVERLAPS_H
#define IP_APP_VALID_PREFIX_OVERLAPS_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "ip_app_valid/interface.h"

namespace ip_application {
namespace config_valid {

class PrefixOverlaps {
  public:
    // The rank of prefixes that only count through their partner's rank.
    static constexpr size_t kNoRank = std::numeric_limits<size_t>::max();

    // Adds the interface's addresses of one family as prefixes of an owner:
    // prefixes of one group are never paired with each other; rank orders
    // the owners. IPv4 prefixes of different address spaces (VRFs, the
    // global and management VRFs sharing one) never overlap; IPv6 prefixes
    // all share one space.
    void AddIPv4(const Interface& intf, size_t group, size_t rank);
    void AddIPv6(const Interface& intf, size_t group, size_t rank);

    // Of all overlapping pairs of prefixes of different groups, the lowest
    // rank either prefix of a pair has (kNoRank does not count); none when
    // no such pair exists.
    std::optional<size_t> LowestRankInOverlap();

  private:
    struct Prefix {
        size_t space;
        std::array<uint8_t, 16> network;  // host bits cleared
        unsigned length;
        size_t group;
        size_t rank;
    };

    void Add(size_t space, const uint8_t* bytes, size_t size, unsigned length, size_t group,
             size_t rank);
    size_t IPv4Space(const std::string& vrf_name);

    std::vector<Prefix> prefixes_;
    std::unordered_map<std::string, size_t> ipv4_spaces_;
};

}  // namespace config_valid
}  // namespace ip_application

#endif  // IP_APP_VALID_PREFIX_OVERLAPS_H
