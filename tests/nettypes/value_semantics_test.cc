// The address types as the plug-in holds them: through base references
// (a static route's network and next hop), written into message streams,
// copied into standard containers, and owned through base pointers.
#include <gtest/gtest.h>

#include <list>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "address_text.h"
#include "nettypes/nettypes.h"

namespace nettypes_test {
namespace {

using nettypes::IPAddr;
using nettypes::IPAddrMask;
using nettypes::IPv4Addr;
using nettypes::IPv4AddrMask;
using nettypes::IPv6Addr;
using nettypes::IPv6AddrMask;

template <typename Value>
std::string Streamed(const Value& value) {
    std::ostringstream out;
    out << '[' << value << ']';
    return out.str();
}

TEST(AddrStreamTest, BaseReferencesWriteTheDynamicTypesText) {
    const IPv4Addr v4(Ipv4Value("10.0.0.1"));
    const IPv6Addr v6(Ipv6Bytes("2001:db8::1"));
    const IPv4AddrMask v4_mask = Ipv4Prefix("10.0.0.1/24");
    const IPv6AddrMask v6_mask = Ipv6Prefix("2001:db8::1/64");

    const struct {
        std::string streamed;
        const char* expected;
    } cases[] = {
        {Streamed<IPAddr>(v4), "[10.0.0.1]"},
        {Streamed<IPAddr>(v6), "[2001:db8::1]"},
        {Streamed<IPAddrMask>(v4_mask), "[10.0.0.1/24]"},
        {Streamed<IPAddrMask>(v6_mask), "[2001:db8::1/64]"},
        {Streamed(v4_mask), "[10.0.0.1/24]"},
        {Streamed(v6_mask), "[2001:db8::1/64]"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.streamed, c.expected);
    }
}

// A message built the way the checks build theirs: a route's network and
// next hop are reached through their bases whichever family they are.
TEST(AddrStreamTest, RouteMessageOfEitherFamily) {
    struct Route {
        const IPAddrMask& network;
        const IPAddr& next_hop;
    };
    const IPv4AddrMask v4_network = Ipv4Prefix("20.0.0.0/8");
    const IPv4Addr v4_hop(Ipv4Value("10.0.0.1"));
    const IPv6AddrMask v6_network = Ipv6Prefix("2001:db8:1::/48");
    const IPv6Addr v6_hop(Ipv6Bytes("fe80::1"));
    const std::vector<Route> routes = {{v4_network, v4_hop}, {v6_network, v6_hop}};

    std::ostringstream out;
    for (const Route& route : routes) {
        out << route.network << " via " << route.next_hop << ';';
    }
    EXPECT_EQ(out.str(), "20.0.0.0/8 via 10.0.0.1;2001:db8:1::/48 via fe80::1;");
}

TEST(AddrContainerTest, CopiesInListsAndVectorsAreIndependentValues) {
    std::list<IPv4AddrMask> v4_list = {Ipv4Prefix("10.0.0.1/24"), Ipv4Prefix("10.0.1.1/24")};
    std::vector<IPv6AddrMask> v6_vector;
    for (unsigned i = 1; i <= 40; ++i) {
        v6_vector.push_back(Ipv6Prefix("2001:db8::" + std::to_string(i) + "/64"));
    }

    const std::list<IPv4AddrMask> v4_copy = v4_list;
    const std::vector<IPv6AddrMask> v6_copy = v6_vector;
    v4_list.front().set_prefix_len(16);
    v6_vector.front().set_addr(Ipv6Bytes("::"));

    EXPECT_EQ(v4_copy.front().to_string(), "10.0.0.1/24");
    EXPECT_EQ(v4_copy.back().to_string(), "10.0.1.1/24");
    EXPECT_FALSE(v4_copy.front() == v4_list.front());
    EXPECT_EQ(v6_copy.front().to_string(), "2001:db8::1/64");
    EXPECT_EQ(v6_copy.back().to_string(), "2001:db8::40/64");
    EXPECT_TRUE(v6_vector.front().IsUnspecified());

    std::vector<IPv6AddrMask> assigned(1);
    assigned = v6_copy;
    EXPECT_EQ(assigned.size(), v6_copy.size());
    EXPECT_TRUE(assigned.back() == v6_copy.back());
}

TEST(AddrOwnershipTest, DestroyedThroughBasePointers) {
    std::vector<std::unique_ptr<IPAddr>> addrs;
    addrs.push_back(std::make_unique<IPv4Addr>(Ipv4Value("10.0.0.1")));
    addrs.push_back(std::make_unique<IPv6Addr>(Ipv6Bytes("2001:db8::1")));
    std::vector<std::unique_ptr<IPAddrMask>> masks;
    masks.push_back(std::make_unique<IPv4AddrMask>(Ipv4Prefix("10.0.0.1/24")));
    masks.push_back(std::make_unique<IPv6AddrMask>(Ipv6Prefix("2001:db8::1/64")));

    EXPECT_EQ(addrs[0]->to_string() + ' ' + addrs[1]->to_string(), "10.0.0.1 2001:db8::1");
    EXPECT_EQ(masks[0]->to_string() + ' ' + masks[1]->to_string(), "10.0.0.1/24 2001:db8::1/64");
    EXPECT_FALSE(*addrs[0] == *addrs[1]);
}

}  // namespace
}  // namespace nettypes_test
