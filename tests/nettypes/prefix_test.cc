// Addresses with a prefix length, both families: overlap and equality of
// pairs, host bits, unspecified values and text forms. The rows sit at the
// edges of the prefix arithmetic: byte boundaries and bits inside a byte,
// /0, the full width, lengths past it and the largest unsigned length.
#include <gtest/gtest.h>

#include "address_text.h"

namespace nettypes_test {
namespace {

using nettypes::IPv4AddrMask;
using nettypes::IPv6AddrMask;

struct PairCase {
    const char* a;
    const char* b;
    bool overlap;
    bool equal;
};

const PairCase kPairCases[] = {
    {"10.0.0.0/8", "10.1.0.0/16", true, false},
    {"10.0.0.0/16", "10.1.0.0/16", false, false},
    {"10.127.0.0/9", "10.128.0.0/9", false, false},
    {"10.0.0.1/24", "10.0.0.200/24", true, false},
    {"10.0.0.1/24", "10.0.1.0/32", false, false},
    {"0.0.0.0/0", "255.255.255.255/32", true, false},
    {"128.0.0.0/1", "0.0.0.0/1", false, false},
    {"10.0.0.0/31", "10.0.0.1/31", true, false},
    {"10.0.0.1/31", "10.0.0.2/31", false, false},
    {"10.0.0.1/32", "10.0.0.1/32", true, true},
    {"10.0.0.1/24", "10.0.0.1/16", true, false},
    {"10.0.0.1/33", "10.0.0.1/32", true, false},
    {"10.0.0.1/40", "10.0.0.2/40", false, false},
    {"10.0.0.1/4294967295", "10.0.0.1/0", true, false},
    {"2001:db8::7fff/113", "2001:db8::8000/113", false, false},
    {"::/0", "ffff::1/128", true, false},
    {"8000::/1", "::/1", false, false},
    {"2001:db8::/127", "2001:db8::1/127", true, false},
    {"2001:db8::1/127", "2001:db8::2/127", false, false},
    {"2001:db8::1/128", "2001:db8::1/128", true, true},
    {"2001:db8::1/64", "2001:db8::1/48", true, false},
    {"2001:db8::1/129", "2001:db8::1/128", true, false},
    {"2001:db8::1/200", "2001:db8::2/200", false, false},
    {"2001:db8::1/4294967295", "::/0", true, false},
};

template <typename Mask>
void CheckPair(const PairCase& c) {
    const auto a = Prefix<Mask>(c.a);
    const auto b = Prefix<Mask>(c.b);
    EXPECT_EQ(a.Overlap(b), c.overlap);
    EXPECT_EQ(b.Overlap(a), c.overlap);
    EXPECT_EQ(a == b, c.equal);
    EXPECT_EQ(b == a, c.equal);
    EXPECT_EQ(a != b, !c.equal);
}

TEST(PrefixTest, OverlapAndEqualityBothWays) {
    for (const auto& c : kPairCases) {
        SCOPED_TRACE(std::string(c.a) + " vs " + c.b);
        IsIpv6Text(c.a) ? CheckPair<IPv6AddrMask>(c) : CheckPair<IPv4AddrMask>(c);
    }
}

struct ValueCase {
    const char* input;
    bool network;
    bool broadcast;
    bool unspecified;
};

const ValueCase kValueCases[] = {
    {"10.0.0.255/24", false, true, false},
    {"10.0.0.1/24", false, false, false},
    {"10.128.0.0/9", true, false, false},
    {"10.127.255.255/9", false, true, false},
    {"0.0.0.0/0", true, false, true},
    {"255.255.255.255/0", false, true, false},
    {"10.0.0.1/31", false, true, false},
    {"10.0.0.1/32", true, true, false},
    {"10.0.0.1/33", true, true, false},
    {"0.0.0.0/24", true, false, true},
    {"10.0.0.1/0", false, false, false},
    {"2001:db8::ffff:ffff:ffff:ffff/64", false, true, false},
    {"2001:db8::1/64", false, false, false},
    {"2001:db8::8000/113", true, false, false},
    {"2001:db8::7fff/113", false, true, false},
    {"::/0", true, false, true},
    {"2001:db8::1/127", false, true, false},
    {"2001:db8::1/128", true, true, false},
    {"::ffff:10.0.0.1/120", false, false, false},
};

TEST(PrefixTest, HostBitsUnspecifiedAndTextThroughTheBase) {
    for (const auto& c : kValueCases) {
        SCOPED_TRACE(c.input);
        const auto value = AnyPrefix(c.input);
        EXPECT_EQ(value->IsNetworkAddr(), c.network);
        EXPECT_EQ(value->IsBroadcastAddr(), c.broadcast);
        EXPECT_EQ(value->IsUnspecified(), c.unspecified);
        EXPECT_EQ(value->to_string(), c.input);
        EXPECT_EQ(Streamed(*value), c.input);
    }
}

TEST(PrefixTest, DefaultIsUnspecifiedSlashZeroUntilSet) {
    IPv4AddrMask v4;
    IPv6AddrMask v6;
    EXPECT_EQ(v4.to_string() + ' ' + v6.to_string(), "0.0.0.0/0 ::/0");
    EXPECT_TRUE(v4.IsUnspecified() && v6.IsUnspecified());
    v4.set_addr(Ipv4Value("10.0.0.1"));
    v4.set_prefix_len(24);
    v6.set_addr(Parse<in6_addr>(AF_INET6, "2001:db8::1"));
    v6.set_prefix_len(64);
    EXPECT_TRUE(v4 == Prefix<IPv4AddrMask>("10.0.0.1/24"));
    EXPECT_TRUE(v6 == Prefix<IPv6AddrMask>("2001:db8::1/64"));
}

}  // namespace
}  // namespace nettypes_test
