#include "nettypes/ipv4_addr.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>

#include <cstring>

#include "address_text.h"
#include "nettypes/ipv6_addr.h"

namespace nettypes_test {
namespace {

using nettypes::IPAddr;
using nettypes::IPv4Addr;
using nettypes::IPv6Addr;

struct NumericCase {
    const char* text;
    uint32_t value;
};

// The value is the address read as a big-endian number.
const NumericCase kNumericCases[] = {
    {"0.0.0.0", 0},
    {"0.0.0.1", 1},
    {"10.0.0.1", 0x0A000001},
    {"1.0.0.0", 0x01000000},
    {"192.168.1.254", 0xC0A801FE},
    {"255.255.255.255", 0xFFFFFFFF},
};

TEST(IPv4AddrTest, TextAndBytesFollowTheNumericValue) {
    for (const auto& c : kNumericCases) {
        SCOPED_TRACE(c.text);
        const IPv4Addr addr(c.value);
        EXPECT_EQ(Ipv4Value(c.text), c.value);
        EXPECT_EQ(addr.to_string(), c.text);
        EXPECT_EQ(addr.to_uint32(), c.value);

        in_addr wire{};
        ASSERT_EQ(inet_pton(AF_INET, c.text, &wire), 1);
        EXPECT_EQ(std::memcmp(addr.to_bytes().data(), &wire, sizeof wire), 0);
    }
}

TEST(IPv4AddrTest, OnlyZeroIsUnspecified) {
    EXPECT_TRUE(IPv4Addr().is_unspecified());
    EXPECT_EQ(IPv4Addr().to_string(), "0.0.0.0");
    EXPECT_FALSE(IPv4Addr(1).is_unspecified());
    EXPECT_FALSE(IPv4Addr(0x80000000).is_unspecified());
}

TEST(IPv4AddrTest, EqualityIsByValueAndFamily) {
    const IPv4Addr a(Ipv4Value("10.0.0.1"));
    const IPv4Addr same(Ipv4Value("10.0.0.1"));
    const IPv4Addr other(Ipv4Value("10.0.0.2"));
    EXPECT_TRUE(a == same);
    EXPECT_FALSE(a != same);
    EXPECT_FALSE(a == other);
    EXPECT_TRUE(a != other);

    const IPAddr& base_same = same;
    const IPAddr& base_other = other;
    EXPECT_TRUE(a == base_same);
    EXPECT_FALSE(a == base_other);
    EXPECT_TRUE(static_cast<const IPAddr&>(a) == base_same);

    // An IPv4 and an IPv6 address never compare equal, not even both zero
    // or both "one".
    const IPv6Addr v6_zero;
    const IPv6Addr v6_one(Ipv6Bytes("::1"));
    EXPECT_FALSE(IPv4Addr() == static_cast<const IPAddr&>(v6_zero));
    EXPECT_FALSE(v6_zero == static_cast<const IPAddr&>(IPv4Addr()));
    EXPECT_FALSE(IPv4Addr(1) == static_cast<const IPAddr&>(v6_one));
    EXPECT_TRUE(IPv4Addr(1) != static_cast<const IPAddr&>(v6_one));
}

}  // namespace
}  // namespace nettypes_test
