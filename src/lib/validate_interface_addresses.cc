// Interface address checks: no network or broadcast address, no host
// address twice on one interface, no overlapping prefixes between
// interfaces, no interface address as a static route's next hop. The first
// violation in iteration order is the one reported.
#include "ip_app_valid/validate_config.h"

#include <iterator>
#include <list>
#include <sstream>
#include <utility>

#include "invalid_interface_text.h"
#include "prefix_overlaps.h"

namespace ip_application {
namespace config_valid {

namespace {

// Point-to-point (/31) and host (/32) prefixes have no network or broadcast
// address to avoid.
constexpr unsigned kLongestCheckedIPv4Prefix = 30;

// The first address of the list whose host address equals that of a later
// one; prefix lengths play no part.
template <typename Mask>
const Mask* FirstDuplicate(const std::list<Mask>& addrs) {
    for (auto first = addrs.begin(); first != addrs.end(); ++first) {
        for (auto later = std::next(first); later != addrs.end(); ++later) {
            if (first->addr() == later->addr()) {
                return &*first;
            }
        }
    }
    return nullptr;
}

template <typename Mask>
std::optional<std::string> DuplicateFailure(const Interface& intf, const std::list<Mask>& addrs,
                                            const char* duplicated) {
    const Mask* duplicate = FirstDuplicate(addrs);
    if (duplicate == nullptr) {
        return std::nullopt;
    }
    return intf.name + duplicated + duplicate->addr().to_string();
}

// The first pair (a of first, b of second), in list order, whose prefixes
// overlap.
template <typename Mask>
std::optional<std::pair<const Mask&, const Mask&>> FirstOverlap(const std::list<Mask>& first,
                                                                const std::list<Mask>& second) {
    for (const Mask& a : first) {
        for (const Mask& b : second) {
            if (a.Overlap(b)) {
                return std::pair<const Mask&, const Mask&>(a, b);
            }
        }
    }
    return std::nullopt;
}

// The global and the management VRF share one IPv4 address space; any other
// VRF, the unnamed one included, has its own.
bool SharesGlobalSpace(const std::string& vrf_name) {
    return vrf_name == "global" || vrf_name == "mgmt";
}

bool SameIPv4AddressSpace(const std::string& first_vrf, const std::string& second_vrf) {
    return first_vrf == second_vrf ||
           (SharesGlobalSpace(first_vrf) && SharesGlobalSpace(second_vrf));
}

// Adds an interface's prefixes of one family to an index of overlaps.
using AddPrefixes = void (PrefixOverlaps::*)(const Interface&, size_t group, size_t rank);

// The position of the first interface that overlaps another one of the
// vector; the pair tests of every interface before it pass.
std::optional<size_t> FirstOverlapping(const std::vector<Interface>& interfaces, AddPrefixes add) {
    PrefixOverlaps overlaps;
    for (size_t position = 0; position < interfaces.size(); ++position) {
        (overlaps.*add)(interfaces[position], position, position);
    }
    return overlaps.LowestRankInOverlap();
}

// Calls visit with each interface of the readers of the other kinds than
// own's, readers in list order, and its rank in that walk.
template <typename Visit>
void ForEachOfOtherKinds(const InterfaceConfig& own, const std::vector<InterfaceConfig*>& all,
                         Visit visit) {
    size_t rank = 0;
    for (const InterfaceConfig* other : all) {
        if (other->type() == own.type()) {
            continue;
        }
        for (const Interface& other_intf : other->interfaces()) {
            visit(other_intf, rank++);
        }
    }
}

// The rank, in the walk of ForEachOfOtherKinds, of the first interface of
// another kind that overlaps an interface of own.
std::optional<size_t> FirstOfOtherKindsOverlapping(const InterfaceConfig& own,
                                                   const std::vector<InterfaceConfig*>& all,
                                                   AddPrefixes add) {
    constexpr size_t kOwnGroup = 0;
    constexpr size_t kOtherGroup = 1;
    PrefixOverlaps overlaps;
    for (const Interface& own_intf : own.interfaces()) {
        (overlaps.*add)(own_intf, kOwnGroup, PrefixOverlaps::kNoRank);
    }
    ForEachOfOtherKinds(own, all, [&](const Interface& other_intf, size_t rank) {
        (overlaps.*add)(other_intf, kOtherGroup, rank);
    });
    return overlaps.LowestRankInOverlap();
}

// Applies overlap to each interface of own (first) with each interface of the
// readers of the other kinds (second), readers in list order; true on the
// first overlap. Only the first interface of the other kinds that overlaps
// one of own can give an overlap: the pairs of those before it all pass.
template <typename PairOverlap>
bool OverlapWithOtherKinds(const InterfaceConfig& own, const std::vector<InterfaceConfig*>& all,
                           AddPrefixes add, PairOverlap overlap) {
    const std::optional<size_t> first_overlapping = FirstOfOtherKindsOverlapping(own, all, add);
    bool overlaps = false;
    ForEachOfOtherKinds(own, all, [&](const Interface& other_intf, size_t rank) {
        if (overlaps || first_overlapping != rank) {
            return;
        }
        for (const Interface& own_intf : own.interfaces()) {
            if (overlap(own_intf, other_intf)) {
                overlaps = true;
                return;
            }
        }
    });
    return overlaps;
}

}  // namespace

struct ValidateConfig::FamilyChecks {
    bool (ValidateConfig::*is_valid)(const Interface&);  // null: no validity rule
    bool (ValidateConfig::*has_duplicate)(const Interface&);
    bool (ValidateConfig::*overlap)(const Interface&, const Interface&);
    bool (ValidateConfig::*matches_next_hop)(const Interface&, const StaticRouteConfig&);
    bool (ValidateConfig::*overlaps_other_kinds)(const InterfaceConfig&,
                                                 const std::vector<InterfaceConfig*>&);
    AddPrefixes add_prefixes;
};

int32_t ValidateConfig::ValidateInterfaceIPv4(const Config& config, InterfaceType type) {
    static constexpr FamilyChecks kIPv4{&ValidateConfig::InterfaceIPv4IsValid,
                                        &ValidateConfig::InterfaceHasDuplicateIpv4,
                                        &ValidateConfig::InterfaceIPv4Overlap,
                                        &ValidateConfig::InterfaceIPv4MatchStaticRouteNextHop,
                                        &ValidateConfig::InterfaceIPv4Overlap,
                                        &PrefixOverlaps::AddIPv4};
    return ValidateInterfaces(config, type, kIPv4);
}

int32_t ValidateConfig::ValidateInterfaceIPv6(const Config& config, InterfaceType type) {
    static constexpr FamilyChecks kIPv6{nullptr,
                                        &ValidateConfig::InterfaceHasDuplicateIpv6,
                                        &ValidateConfig::InterfaceIPv6Overlap,
                                        &ValidateConfig::InterfaceIPv6MatchStaticRouteNextHop,
                                        &ValidateConfig::InterfaceIPv6Overlap,
                                        &PrefixOverlaps::AddIPv6};
    return ValidateInterfaces(config, type, kIPv6);
}

// Each interface of the kind in turn is checked completely (validity,
// duplicates, overlap with every later interface of its kind, next hops)
// before the next one; overlaps with the other kinds only when the whole kind
// is clean. Only the first interface that overlaps another of its kind can
// fail the pair tests: those before it overlap none, and the run ends there.
int32_t ValidateConfig::ValidateInterfaces(const Config& config, InterfaceType type,
                                           const FamilyChecks& family) {
    const InterfaceConfig* own = config.intf_by_type(type);
    if (own == nullptr) {
        SetError(kInvalidInterfaceText);
        return -1;
    }
    const std::vector<Interface>& interfaces = own->interfaces();
    const std::optional<size_t> first_overlapping =
        FirstOverlapping(interfaces, family.add_prefixes);
    for (size_t position = 0; position < interfaces.size(); ++position) {
        const Interface& intf = interfaces[position];
        if ((family.is_valid != nullptr && !(this->*family.is_valid)(intf)) ||
            (this->*family.has_duplicate)(intf)) {
            return -1;
        }
        if (first_overlapping == position) {
            for (size_t later = position + 1; later < interfaces.size(); ++later) {
                if ((this->*family.overlap)(intf, interfaces[later])) {
                    return -1;
                }
            }
        }
        if ((this->*family.matches_next_hop)(intf, config.static_route_config)) {
            return -1;
        }
    }
    return (this->*family.overlaps_other_kinds)(*own, config.interface_configs) ? -1 : 0;
}

bool ValidateConfig::InterfaceIPv4IsValid(const Interface& intf) {
    for (const nettypes::IPv4AddrMask& addr : intf.ipv4_addrs) {
        if (addr.prefix_len() > kLongestCheckedIPv4Prefix) {
            continue;
        }
        const char* problem = addr.IsNetworkAddr() ? " cannot be configured as network address."
                              : addr.IsBroadcastAddr()
                                  ? " cannot be configured as broadcast address."
                                  : nullptr;
        if (problem != nullptr) {
            std::ostringstream text;
            text << intf.name << " ipv4 address " << addr << problem;
            SetError(text.str());
            return false;
        }
    }
    return true;
}

bool ValidateConfig::InterfaceHasDuplicateIpv4(const Interface& intf) {
    return Fails(DuplicateFailure(intf, intf.ipv4_addrs, " has duplicated IPv4 address "));
}

bool ValidateConfig::InterfaceHasDuplicateIpv6(const Interface& intf) {
    return Fails(DuplicateFailure(intf, intf.ipv6_addrs, " has duplicated IPv6 address "));
}

bool ValidateConfig::InterfaceIPv4Overlap(const Interface& first, const Interface& second) {
    if (!SameIPv4AddressSpace(first.vrf_name, second.vrf_name)) {
        return false;
    }
    const auto overlap = FirstOverlap(first.ipv4_addrs, second.ipv4_addrs);
    if (!overlap) {
        return false;
    }
    std::ostringstream text;
    text << first.name << " vrf " << first.vrf_name << " ipv4 address " << overlap->first
         << " overlaps with " << second.name << " vrf " << second.vrf_name << " ipv4 address "
         << overlap->second << ".";
    SetError(text.str());
    return true;
}

bool ValidateConfig::InterfaceIPv6Overlap(const Interface& first, const Interface& second) {
    // IPv6 prefixes are unique across VRFs: no VRF scope here.
    const auto overlap = FirstOverlap(first.ipv6_addrs, second.ipv6_addrs);
    if (!overlap) {
        return false;
    }
    std::ostringstream text;
    text << first.name << " ipv6 address " << overlap->first << " overlaps with " << second.name
         << " ipv6 address " << overlap->second << ".";
    SetError(text.str());
    return true;
}

bool ValidateConfig::InterfaceIPv4Overlap(const InterfaceConfig& own,
                                          const std::vector<InterfaceConfig*>& all) {
    return OverlapWithOtherKinds(own, all, &PrefixOverlaps::AddIPv4,
                                 [this](const Interface& first, const Interface& second) {
                                     return InterfaceIPv4Overlap(first, second);
                                 });
}

bool ValidateConfig::InterfaceIPv6Overlap(const InterfaceConfig& own,
                                          const std::vector<InterfaceConfig*>& all) {
    return OverlapWithOtherKinds(own, all, &PrefixOverlaps::AddIPv6,
                                 [this](const Interface& first, const Interface& second) {
                                     return InterfaceIPv6Overlap(first, second);
                                 });
}

}  // namespace config_valid
}  // namespace ip_application
