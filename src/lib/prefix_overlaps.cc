#include "prefix_overlaps.h"

#include <algorithm>
#include <tuple>

namespace ip_application {
namespace config_valid {

namespace {

// The global and the management VRF share one IPv4 address space.
const std::string& IPv4SpaceName(const std::string& vrf_name) {
    static const std::string kShared = "global";
    return vrf_name == "mgmt" ? kShared : vrf_name;
}

// The bytes of address up to length bits, the rest zero.
std::array<uint8_t, 16> Network(const uint8_t* bytes, size_t size, unsigned length) {
    std::array<uint8_t, 16> network{};
    for (size_t i = 0; i < size && length > 0; ++i) {
        const unsigned bits = std::min(length, 8u);
        network[i] = static_cast<uint8_t>(bytes[i] & (0xff00u >> bits));
        length -= bits;
    }
    return network;
}

// An owner of open prefixes: its group and rank.
struct Owner {
    bool present = false;
    size_t group = 0;
    size_t rank = 0;
};

// A prefix on the stack of open prefixes, with the lowest-ranked owner of it
// and the prefixes below it, and the lowest-ranked owner of another group
// than that one's.
struct Open {
    size_t prefix;  // position in the sorted prefixes
    Owner lowest;
    Owner lowest_of_other_group;
};

Open OpenOnTop(size_t prefix, size_t group, size_t rank, const Open* below) {
    Open open{prefix, below ? below->lowest : Owner{},
              below ? below->lowest_of_other_group : Owner{}};
    const Owner owner{true, group, rank};
    if (!open.lowest.present || open.lowest.group == group) {
        if (!open.lowest.present || rank < open.lowest.rank) {
            open.lowest = owner;
        }
    } else if (rank < open.lowest.rank) {
        open.lowest_of_other_group = open.lowest;
        open.lowest = owner;
    } else if (!open.lowest_of_other_group.present || rank < open.lowest_of_other_group.rank) {
        open.lowest_of_other_group = owner;
    }
    return open;
}

}  // namespace

void PrefixOverlaps::AddIPv4(const Interface& intf, size_t group, size_t rank) {
    const size_t space = IPv4Space(intf.vrf_name);
    for (const nettypes::IPv4AddrMask& addr : intf.ipv4_addrs) {
        const std::array<uint8_t, 4> bytes = addr.addr().to_bytes();
        Add(space, bytes.data(), bytes.size(), addr.prefix_len(), group, rank);
    }
}

void PrefixOverlaps::AddIPv6(const Interface& intf, size_t group, size_t rank) {
    for (const nettypes::IPv6AddrMask& addr : intf.ipv6_addrs) {
        const in6_addr& bytes = addr.addr().addr();
        Add(0, bytes.s6_addr, sizeof bytes.s6_addr, addr.prefix_len(), group, rank);
    }
}

void PrefixOverlaps::Add(size_t space, const uint8_t* bytes, size_t size, unsigned length,
                         size_t group, size_t rank) {
    const unsigned bounded = std::min<unsigned>(length, static_cast<unsigned>(size * 8));
    prefixes_.push_back({space, Network(bytes, size, bounded), bounded, group, rank});
}

size_t PrefixOverlaps::IPv4Space(const std::string& vrf_name) {
    return ipv4_spaces_.emplace(IPv4SpaceName(vrf_name), ipv4_spaces_.size()).first->second;
}

std::optional<size_t> PrefixOverlaps::LowestRankInOverlap() {
    const auto key = [](const Prefix& prefix) {
        return std::tie(prefix.space, prefix.network, prefix.length);
    };
    std::sort(prefixes_.begin(), prefixes_.end(),
              [&key](const Prefix& a, const Prefix& b) { return key(a) < key(b); });
    const auto holds = [](const Prefix& outer, const Prefix& inner) {
        return outer.space == inner.space && outer.length <= inner.length &&
               Network(inner.network.data(), inner.network.size(), outer.length) == outer.network;
    };
    std::vector<Open> open;
    size_t lowest = kNoRank;
    for (size_t position = 0; position < prefixes_.size(); ++position) {
        const Prefix& prefix = prefixes_[position];
        while (!open.empty() && !holds(prefixes_[open.back().prefix], prefix)) {
            open.pop_back();
        }
        const Open* top = open.empty() ? nullptr : &open.back();
        if (top != nullptr) {
            const Owner& partner =
                top->lowest.group != prefix.group ? top->lowest : top->lowest_of_other_group;
            if (partner.present) {
                lowest = std::min({lowest, prefix.rank, partner.rank});
            }
        }
        open.push_back(OpenOnTop(position, prefix.group, prefix.rank, top));
    }
    return lowest == kNoRank ? std::nullopt : std::optional<size_t>(lowest);
}

}  // namespace config_valid
}  // namespace ip_application
