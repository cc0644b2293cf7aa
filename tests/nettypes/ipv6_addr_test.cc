#include "nettypes/ipv6_addr.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>

#include "address_text.h"

namespace nettypes_test {
namespace {

using nettypes::IPv6Addr;

struct TextCase {
    const char* input;
    const char* text;
};

const TextCase kTextCases[] = {
    {"0:0:0:0:0:0:0:0", "::"},
    {"0:0:0:0:0:0:0:1", "::1"},
    {"1:0:0:0:0:0:0:0", "1::"},
    {"2001:0DB8:0000:0000:0000:0000:0000:0001", "2001:db8::1"},
    {"2001:db8:aaaa:bbbb:cccc:dddd:eeee:0001", "2001:db8:aaaa:bbbb:cccc:dddd:eeee:1"},
    // A single zero group is written as "0", never as "::".
    {"2001:db8:0:1:1:1:1:1", "2001:db8:0:1:1:1:1:1"},
    {"0:1:2:3:4:5:6:7", "0:1:2:3:4:5:6:7"},
    {"1:2:3:4:5:6:7:0", "1:2:3:4:5:6:7:0"},
    {"1:0:1:0:1:0:1:0", "1:0:1:0:1:0:1:0"},
    // The longest run is shortened; on a tie the first one.
    {"2001:0:0:1:0:0:0:1", "2001:0:0:1::1"},
    {"2001:db8:0:0:1:0:0:1", "2001:db8::1:0:0:1"},
    {"0:0:1:0:0:0:0:0", "0:0:1::"},
    {"0:0:1:0:0:1:0:0", "::1:0:0:1:0:0"},
    {"fe80:0:0:0:0:0:0:0", "fe80::"},
    {"ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff", "ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff"},
    // IPv4-mapped addresses end in dotted decimal; other embeddings do not.
    {"::ffff:192.0.2.1", "::ffff:192.0.2.1"},
    {"::ffff:0:0", "::ffff:0.0.0.0"},
    {"::192.0.2.1", "::c000:201"},
    {"::fffe:192.0.2.1", "::fffe:c000:201"},
    {"1::ffff:192.0.2.1", "1::ffff:c000:201"},
    {"64:ff9b::192.0.2.1", "64:ff9b::c000:201"},
};

TEST(IPv6AddrTest, TextFormIsRfc5952) {
    for (const auto& c : kTextCases) {
        SCOPED_TRACE(c.input);
        EXPECT_EQ(IPv6Addr(Ipv6Bytes(c.input)).to_string(), c.text);
    }
}

// Every pattern of zero and non-zero groups. The C library's inet_ntop
// shortens zero runs the same way but writes an embedded IPv4 address when
// the first six groups are zero, so those patterns are only read back.
TEST(IPv6AddrTest, EveryZeroGroupPatternReadsBackAndMatchesInetNtop) {
    const std::array<uint16_t, 8> values = {0x1, 0xab, 0xc00, 0xdef0, 0x20, 0xf, 0x300, 0xbeef};
    for (unsigned pattern = 0; pattern < 256; ++pattern) {
        in6_addr bytes{};
        for (unsigned group = 0; group < 8; ++group) {
            const uint16_t value = (pattern >> group & 1) != 0 ? values[group] : 0;
            bytes.s6_addr[2 * group] = static_cast<uint8_t>(value >> 8);
            bytes.s6_addr[2 * group + 1] = static_cast<uint8_t>(value);
        }
        const std::string text = IPv6Addr(bytes).to_string();
        SCOPED_TRACE(text);
        EXPECT_TRUE(IPv6Addr(Ipv6Bytes(text)) == IPv6Addr(bytes));

        char expected[INET6_ADDRSTRLEN];
        ASSERT_NE(inet_ntop(AF_INET6, &bytes, expected, sizeof expected), nullptr);
        if ((pattern & 0x3F) != 0) {
            EXPECT_EQ(text, expected);
        }
    }
}

TEST(IPv6AddrTest, OnlyAllZeroIsUnspecified) {
    EXPECT_TRUE(IPv6Addr().is_unspecified());
    EXPECT_EQ(IPv6Addr().to_string(), "::");
    EXPECT_FALSE(IPv6Addr(Ipv6Bytes("::1")).is_unspecified());
    EXPECT_FALSE(IPv6Addr(Ipv6Bytes("8000::")).is_unspecified());
}

TEST(IPv6AddrTest, EqualityComparesAllSixteenBytes) {
    const IPv6Addr a(Ipv6Bytes("2001:db8::1"));
    EXPECT_TRUE(a == IPv6Addr(Ipv6Bytes("2001:db8:0::1")));
    EXPECT_FALSE(a != IPv6Addr(Ipv6Bytes("2001:db8:0::1")));
    for (const char* other : {"2001:db8::", "2001:db8::101", "3001:db8::1", "2001:db9::1"}) {
        SCOPED_TRACE(other);
        EXPECT_FALSE(a == IPv6Addr(Ipv6Bytes(other)));
        EXPECT_TRUE(a != IPv6Addr(Ipv6Bytes(other)));
    }
}

}  // namespace
}  // namespace nettypes_test
