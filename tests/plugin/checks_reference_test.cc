// The whole-configuration checks and the readers' merges look things up
// (prefixes sorted once, routes by next hop, records by name) instead of
// comparing every pair. Here they meet their plain form, nested loops in the
// rules' order over the same records, on thousands of seeded random
// configurations small enough that names repeat, prefixes overlap and next
// hops hit addresses: the verdict and the text must be the same.
#include <arpa/inet.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "ip_app_valid/config.h"
#include "ip_app_valid/validate_config.h"
#include "record_text.h"

namespace {

using namespace ip_application::config_valid;
using plugin_test::Texts;

constexpr unsigned kConfigurations = 2000;

class Random {
  public:
    explicit Random(unsigned seed) : engine_(seed) {}
    size_t Below(size_t bound) {
        return std::uniform_int_distribution<size_t>(0, bound - 1)(engine_);
    }
    template <typename T, size_t N>
    const T& Of(const T (&choices)[N]) {
        return choices[Below(N)];
    }

  private:
    std::mt19937 engine_;
};

// What one configuration draws from: the spread of its addresses and how
// many names each kind has, so that some configurations pass every check
// and others fail at any point of it.
struct Pools {
    explicit Pools(Random& random)
        : spread(size_t{1} << (6 + random.Below(19))), names(1 + random.Below(24)) {}
    size_t spread;
    size_t names;
};

constexpr const char* kVrfs[] = {"global", "global", "global", "mgmt", "red", ""};
constexpr unsigned kIPv4Lengths[] = {16, 24, 30, 31, 32, 32, 32, 32, 32, 32, 32, 32};
constexpr unsigned kIPv6Lengths[] = {96, 120, 127, 128, 128, 128, 128, 128};
// The name prefix of each interface kind, by its InterfaceType value.
constexpr const char* kKinds[] = {"mgmt ", "l3 ", "loopback "};

nettypes::IPv4Addr IPv4Host(Random& random, const Pools& pools) {
    return nettypes::IPv4Addr(0x0a000000u + static_cast<uint32_t>(random.Below(pools.spread)));
}

nettypes::IPv6Addr IPv6Host(Random& random, const Pools& pools) {
    in6_addr addr{};
    inet_pton(AF_INET6, "2001:db8::", &addr);
    const uint32_t low = htonl(static_cast<uint32_t>(random.Below(pools.spread)));
    std::memcpy(&addr.s6_addr[12], &low, sizeof low);
    return nettypes::IPv6Addr(addr);
}

std::string Name(Random& random, const Pools& pools, const char* kind) {
    return kind + std::to_string(random.Below(pools.names));
}

// One reader's read of one family: records with the family's addresses.
Interface Record(Random& random, const Pools& pools, const char* kind, bool ipv4) {
    Interface intf;
    intf.name = Name(random, pools, kind);
    intf.vrf_name = random.Of(kVrfs);
    intf.lim_id.type = static_cast<uint8_t>(random.Below(2));
    for (size_t n = random.Below(4); n > 0; --n) {
        if (ipv4) {
            intf.ipv4_addrs.emplace_back(IPv4Host(random, pools).to_uint32(),
                                         random.Of(kIPv4Lengths));
        } else {
            intf.ipv6_addrs.emplace_back(IPv6Host(random, pools).addr(), random.Of(kIPv6Lengths));
        }
    }
    return intf;
}

// The plain merge: the first record of the same name, searched from the
// front.
void PlainMerge(std::vector<Interface>& interfaces, const Interface& intf) {
    for (Interface& stored : interfaces) {
        if (stored.name == intf.name) {
            if (stored.ipv4_addrs.empty() && !intf.ipv4_addrs.empty()) {
                stored.ipv4_addrs = intf.ipv4_addrs;
            } else if (stored.ipv6_addrs.empty() && !intf.ipv6_addrs.empty()) {
                stored.ipv6_addrs = intf.ipv6_addrs;
            }
            return;
        }
    }
    interfaces.push_back(intf);
}

void PlainMerge(std::vector<OspfIf>& records, const OspfIf& record) {
    for (OspfIf& stored : records) {
        if (stored.intf_name == record.intf_name && stored.process_id == record.process_id &&
            stored.vrf_name == record.vrf_name) {
            if (!record.addrs.empty()) {
                stored.addrs.push_back(record.addrs.front());
            }
            return;
        }
    }
    records.push_back(record);
}

// The readers OSPFv2 assignments are made for and checked against.
std::array<const InterfaceConfig*, 2> OspfReaders(const Config& config) {
    return {&config.l3_config, &config.lo_config};
}

// A random snapshot, filled through the readers' merges, and each merge's
// plain result.
struct Snapshot {
    Config config;
    std::vector<std::vector<Interface>> plain_interfaces;  // per reader of config
    std::vector<OspfIf> plain_ospf;
    // Each route of both families alone in a route reader, in list order.
    std::vector<std::unique_ptr<StaticRouteConfig>> ipv4_route_alone;
    std::vector<std::unique_ptr<StaticRouteConfig>> ipv6_route_alone;
};

void FillInterfaces(Random& random, const Pools& pools, Snapshot& snapshot) {
    snapshot.plain_interfaces.resize(snapshot.config.interface_configs.size());
    for (bool ipv4 : {true, false}) {
        for (size_t reader = 0; reader < snapshot.config.interface_configs.size(); ++reader) {
            InterfaceConfig& interfaces = *snapshot.config.interface_configs[reader];
            const char* kind = kKinds[static_cast<size_t>(interfaces.type())];
            for (size_t n = random.Below(2 * pools.names); n > 0; --n) {
                const Interface intf = Record(random, pools, kind, ipv4);
                interfaces.MergeConfigAndInsert(intf);
                PlainMerge(snapshot.plain_interfaces[reader], intf);
            }
        }
    }
}

template <typename Route>
void AddRoute(const std::shared_ptr<Route>& route, StaticRouteConfig& routes,
              std::vector<std::unique_ptr<StaticRouteConfig>>& alone) {
    routes.Append(route);
    alone.push_back(std::make_unique<StaticRouteConfig>());
    alone.back()->Append(route);
}

// Routes with networks of their own, so that the text names which one
// conflicts.
void FillRoutes(Random& random, const Pools& pools, Snapshot& snapshot) {
    for (uint32_t n = static_cast<uint32_t>(random.Below(2 * pools.names)); n > 0; --n) {
        const std::string out = random.Below(3) == 0 ? "" : Name(random, pools, random.Of(kKinds));
        AddRoute(std::make_shared<StaticRouteIPv4>(
                     out, random.Of(kVrfs), nettypes::IPv4AddrMask(0x14000000u + (n << 8), 24),
                     IPv4Host(random, pools)),
                 snapshot.config.static_route_config, snapshot.ipv4_route_alone);
        in6_addr network{};
        inet_pton(AF_INET6, "2001:db9::", &network);
        network.s6_addr[5] = static_cast<uint8_t>(n);
        AddRoute(std::make_shared<StaticRouteIPv6>(out, random.Of(kVrfs),
                                                   nettypes::IPv6AddrMask(network, 48),
                                                   IPv6Host(random, pools)),
                 snapshot.config.static_route_config, snapshot.ipv6_route_alone);
    }
}

// Assignments of l3 and loopback interfaces: mostly their addresses and
// VRFs, sometimes another address or VRF.
void FillOspf(Random& random, Snapshot& snapshot) {
    for (const InterfaceConfig* reader : OspfReaders(snapshot.config)) {
        for (const Interface& intf : reader->interfaces()) {
            if (random.Below(3) == 0) {
                continue;
            }
            OspfIf record;
            record.intf_name = intf.name;
            record.process_id = static_cast<uint32_t>(1 + random.Below(2));
            record.vrf_name = random.Below(8) == 0 ? random.Of(kVrfs) : intf.vrf_name;
            for (const nettypes::IPv4AddrMask& addr : intf.ipv4_addrs) {
                record.addrs = {random.Below(10) == 0
                                    ? nettypes::IPv4AddrMask(addr.addr().to_uint32(), 32)
                                    : addr};
                snapshot.config.ospfv2_config.MergeConfigAndInsert(record);
                PlainMerge(snapshot.plain_ospf, record);
            }
            if (intf.ipv4_addrs.empty() || random.Below(10) == 0) {
                record.addrs.clear();
                snapshot.config.ospfv2_config.MergeConfigAndInsert(record);
                PlainMerge(snapshot.plain_ospf, record);
            }
        }
    }
}

// A check's result and its error text.
using Verdict = std::pair<int32_t, std::string>;

template <typename Check>
Verdict VerdictOf(Check check) {
    ValidateConfig checks;
    const int32_t result = check(checks);
    return {result, checks.error()};
}

template <typename Addrs>
bool HasHost(const Addrs& addrs, const nettypes::IPAddr& host) {
    return std::any_of(addrs.begin(), addrs.end(),
                       [&](const auto& addr) { return host == addr.addr(); });
}

// True when the route is in the interface's VRF and its next hop is one of
// the interface's addresses of the family.
bool NextHopIsAnAddress(const StaticRoute& route, const Interface& intf, bool ipv4) {
    return route.vrf_name() == intf.vrf_name && (ipv4 ? HasHost(intf.ipv4_addrs, route.next_hop())
                                                      : HasHost(intf.ipv6_addrs, route.next_hop()));
}

// The interface address check of one kind and family as nested loops:
// validity, duplicates, every later interface, every route in list order,
// then every interface of the other kinds against every one of the kind.
int32_t PlainInterfaceCheck(ValidateConfig& checks, const Snapshot& snapshot, InterfaceType type,
                            bool ipv4) {
    const InterfaceConfig& own = *snapshot.config.intf_by_type(type);
    const auto overlap = [&](const Interface& first, const Interface& second) {
        return ipv4 ? checks.InterfaceIPv4Overlap(first, second)
                    : checks.InterfaceIPv6Overlap(first, second);
    };
    const std::vector<Interface>& interfaces = own.interfaces();
    for (size_t i = 0; i < interfaces.size(); ++i) {
        if ((ipv4 && !checks.InterfaceIPv4IsValid(interfaces[i])) ||
            (ipv4 ? checks.InterfaceHasDuplicateIpv4(interfaces[i])
                  : checks.InterfaceHasDuplicateIpv6(interfaces[i]))) {
            return -1;
        }
        for (size_t j = i + 1; j < interfaces.size(); ++j) {
            if (overlap(interfaces[i], interfaces[j])) {
                return -1;
            }
        }
        const StaticRouteConfig& routes = snapshot.config.static_route_config;
        const auto& alone = ipv4 ? snapshot.ipv4_route_alone : snapshot.ipv6_route_alone;
        auto route = (ipv4 ? routes.ipv4_routes() : routes.ipv6_routes()).begin();
        for (size_t r = 0; r < alone.size(); ++r, ++route) {
            if (NextHopIsAnAddress(**route, interfaces[i], ipv4)) {
                // The text of that route's conflict, from the check on it alone.
                ipv4 ? checks.InterfaceIPv4MatchStaticRouteNextHop(interfaces[i], *alone[r])
                     : checks.InterfaceIPv6MatchStaticRouteNextHop(interfaces[i], *alone[r]);
                return -1;
            }
        }
    }
    for (const InterfaceConfig* other : snapshot.config.interface_configs) {
        if (other->type() == type) {
            continue;
        }
        for (const Interface& other_intf : other->interfaces()) {
            for (const Interface& own_intf : interfaces) {
                if (overlap(own_intf, other_intf)) {
                    return -1;
                }
            }
        }
    }
    return 0;
}

int32_t PlainOutputIntfCheck(ValidateConfig& checks, const Config& config) {
    const StaticRouteConfig& routes = config.static_route_config;
    for (const InterfaceConfig* reader : config.interface_configs) {
        for (const Interface& intf : reader->interfaces()) {
            if (IsZeroLimId(intf.lim_id) &&
                (checks.InterfaceMatchStaticRouteOutputIntf(intf, routes.ipv4_routes()) != 0 ||
                 checks.InterfaceMatchStaticRouteOutputIntf(intf, routes.ipv6_routes()) != 0)) {
                return -1;
            }
        }
    }
    return 0;
}

// The OSPFv2 check as nested loops: every record with every l3, then every
// loopback interface of the same name, each pair checked alone (the layer-3
// and the loopback checks share one body).
int32_t PlainOspfCheck(ValidateConfig& checks, const Snapshot& snapshot, bool vrf) {
    for (const InterfaceConfig* reader : OspfReaders(snapshot.config)) {
        for (const OspfIf& record : snapshot.plain_ospf) {
            for (const Interface& intf : reader->interfaces()) {
                if (intf.name != record.intf_name) {
                    continue;
                }
                LoConfig alone;
                alone.MergeConfigAndInsert(intf);
                Ospfv2Config record_alone;
                OspfIf copy = record;
                record_alone.MergeConfigAndInsert(copy);
                if (!(vrf ? checks.ValidateOspfv2CrossIfLoVrf(alone, record_alone)
                          : checks.ValidateOspfv2CrossIfLo(alone, record_alone))) {
                    return -1;
                }
            }
        }
    }
    return 0;
}

TEST(ChecksAgainstNestedLoops, SameVerdictAndTextOnRandomConfigurations) {
    size_t refused = 0;
    size_t checked = 0;
    for (unsigned seed = 1; seed <= kConfigurations; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Random random(seed);
        const Pools pools(random);
        Snapshot snapshot;
        FillInterfaces(random, pools, snapshot);
        FillRoutes(random, pools, snapshot);
        FillOspf(random, snapshot);
        for (size_t reader = 0; reader < snapshot.config.interface_configs.size(); ++reader) {
            ASSERT_EQ(Texts(snapshot.config.interface_configs[reader]->interfaces()),
                      Texts(snapshot.plain_interfaces[reader]));
        }
        ASSERT_EQ(Texts(snapshot.config.ospfv2_config.interfaces()), Texts(snapshot.plain_ospf));

        std::vector<std::pair<Verdict, Verdict>> verdicts;
        const auto compare = [&](auto indexed, auto plain) {
            verdicts.emplace_back(VerdictOf(indexed), VerdictOf(plain));
        };
        for (InterfaceType type : {InterfaceType::Mgmt, InterfaceType::L3, InterfaceType::Lo}) {
            for (bool ipv4 : {true, false}) {
                compare(
                    [&](ValidateConfig& checks) {
                        return ipv4 ? checks.ValidateInterfaceIPv4(snapshot.config, type)
                                    : checks.ValidateInterfaceIPv6(snapshot.config, type);
                    },
                    [&](ValidateConfig& checks) {
                        return PlainInterfaceCheck(checks, snapshot, type, ipv4);
                    });
            }
        }
        compare(
            [&](ValidateConfig& checks) {
                return checks.ValidateStaticRouteOutputIntf(snapshot.config);
            },
            [&](ValidateConfig& checks) { return PlainOutputIntfCheck(checks, snapshot.config); });
        for (bool vrf : {false, true}) {
            compare(
                [&](ValidateConfig& checks) {
                    return vrf ? checks.ValidateOspfv2Vrf(snapshot.config)
                               : checks.ValidateOspfv2(snapshot.config);
                },
                [&](ValidateConfig& checks) { return PlainOspfCheck(checks, snapshot, vrf); });
        }
        for (const auto& [indexed, plain] : verdicts) {
            ASSERT_EQ(indexed, plain) << "check " << checked % verdicts.size();
            refused += plain.first != 0 ? 1 : 0;
            ++checked;
        }
    }
    // The configurations must reach both verdicts often for the comparison
    // to mean anything.
    EXPECT_GT(refused, checked / 4);
    EXPECT_LT(refused, checked * 3 / 4);
}

}  // namespace
