// Behaviour shared by IPv4AddrMask and IPv6AddrMask, run for both families:
// overlap, network and broadcast addresses, equality, unspecified values and
// text forms.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "address_text.h"
#include "nettypes/ipv4_addr_mask.h"
#include "nettypes/ipv6_addr_mask.h"

namespace nettypes_test {
namespace {

using nettypes::IPv4AddrMask;
using nettypes::IPv6AddrMask;

struct PairCase {
    const char* a;
    const char* b;
    bool expected;
};

struct HostBitsCase {
    const char* prefix;
    bool network;
    bool broadcast;
};

struct TextCase {
    const char* input;
    const char* text;
};

using Bytes = std::vector<uint8_t>;

struct Ipv4Family {
    using Mask = IPv4AddrMask;
    static constexpr unsigned kWidth = 32;

    static Mask Parse(const std::string& text) { return Ipv4Prefix(text); }
    static Mask Make(const Bytes& bytes, unsigned prefix_len) {
        uint32_t value = 0;
        for (uint8_t byte : bytes) {
            value = value << 8 | byte;
        }
        return {value, prefix_len};
    }
    static unsigned SomeAddr() { return Ipv4Value("0.0.0.1"); }

    static std::vector<PairCase> Overlaps() {
        return {
            {"10.0.0.0/8", "10.1.0.0/16", true},         {"10.0.0.0/16", "10.1.0.0/16", false},
            {"10.0.0.1/24", "10.0.0.200/24", true},      {"10.0.0.1/24", "10.0.1.1/24", false},
            {"10.0.0.1/24", "10.0.0.77/32", true},       {"10.0.0.1/24", "10.0.1.0/32", false},
            {"0.0.0.0/0", "255.255.255.255/32", true},   {"1.2.3.4/0", "200.0.0.1/32", true},
            {"128.0.0.0/1", "0.0.0.0/1", false},         {"128.0.0.0/1", "255.0.0.0/8", true},
            {"10.0.0.0/31", "10.0.0.1/31", true},        {"10.0.0.1/31", "10.0.0.2/31", false},
            {"10.0.0.1/32", "10.0.0.1/32", true},        {"10.0.0.1/32", "10.0.0.2/32", false},
            {"10.0.0.1/33", "10.0.0.1/32", true},        {"10.0.0.1/40", "10.0.0.2/40", false},
            {"10.0.0.1/4294967295", "10.0.0.1/0", true},
        };
    }
    static std::vector<HostBitsCase> HostBits() {
        return {
            {"10.0.0.0/24", true, false},       {"10.0.0.255/24", false, true},
            {"10.0.0.1/24", false, false},      {"10.0.0.0/8", true, false},
            {"10.255.255.255/8", false, true},  {"10.128.0.0/9", true, false},
            {"10.127.255.255/9", false, true},  {"0.0.0.0/0", true, false},
            {"255.255.255.255/0", false, true}, {"10.0.0.0/31", true, false},
            {"10.0.0.1/31", false, true},       {"10.0.0.1/32", true, true},
            {"10.0.0.1/33", true, true},
        };
    }
    static std::vector<PairCase> Equalities() {
        return {
            {"10.0.0.1/24", "10.0.0.1/24", true},
            {"10.0.0.1/24", "10.0.0.1/16", false},
            {"10.0.0.1/24", "10.0.0.2/24", false},
            {"10.0.0.1/33", "10.0.0.1/32", false},
        };
    }
    static std::vector<TextCase> Texts() {
        return {
            {"10.0.0.1/24", "10.0.0.1/24"},
            {"0.0.0.0/0", "0.0.0.0/0"},
            {"10.0.0.1/33", "10.0.0.1/33"},
        };
    }
};

struct Ipv6Family {
    using Mask = IPv6AddrMask;
    static constexpr unsigned kWidth = 128;

    static Mask Parse(const std::string& text) { return Ipv6Prefix(text); }
    static Mask Make(const Bytes& bytes, unsigned prefix_len) {
        in6_addr addr{};
        std::copy(bytes.begin(), bytes.end(), addr.s6_addr);
        return {addr, prefix_len};
    }
    static in6_addr SomeAddr() { return Ipv6Bytes("::1"); }

    static std::vector<PairCase> Overlaps() {
        return {
            {"2001:db8::/32", "2001:db8:1::/48", true},
            {"2001:db8::/48", "2001:db8:1::/48", false},
            {"2001:db8::1/64", "2001:db8::ffff/64", true},
            {"2001:db8::1/64", "2001:db8:0:1::1/64", false},
            {"::/0", "ffff::1/128", true},
            {"8000::/1", "::/1", false},
            {"2001:db8::/127", "2001:db8::1/127", true},
            {"2001:db8::1/127", "2001:db8::2/127", false},
            {"2001:db8::1/128", "2001:db8::1/128", true},
            {"2001:db8::1/128", "2001:db8::2/128", false},
            {"2001:db8::1/129", "2001:db8::1/128", true},
            {"2001:db8::1/200", "2001:db8::2/200", false},
            {"2001:db8::1/4294967295", "::/0", true},
        };
    }
    static std::vector<HostBitsCase> HostBits() {
        return {
            {"2001:db8::/64", true, false},
            {"2001:db8::ffff:ffff:ffff:ffff/64", false, true},
            {"2001:db8::1/64", false, false},
            {"2001:db8::8000/113", true, false},
            {"2001:db8::7fff/113", false, true},
            {"::/0", true, false},
            {"ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff/0", false, true},
            {"2001:db8::/127", true, false},
            {"2001:db8::1/127", false, true},
            {"2001:db8::1/128", true, true},
            {"::1/129", true, true},
        };
    }
    static std::vector<PairCase> Equalities() {
        return {
            {"2001:db8::1/64", "2001:db8::1/64", true},
            {"2001:db8::1/64", "2001:db8::1/48", false},
            {"2001:db8::1/64", "2001:db8::2/64", false},
            {"2001:db8::1/129", "2001:db8::1/128", false},
        };
    }
    static std::vector<TextCase> Texts() {
        return {
            {"2001:DB8:0:0::1/64", "2001:db8::1/64"},
            {"::/0", "::/0"},
            {"::ffff:10.0.0.1/120", "::ffff:10.0.0.1/120"},
            {"2001:db8::1/129", "2001:db8::1/129"},
        };
    }
};

template <typename Family>
class AddrMaskTest : public ::testing::Test {};

using Families = ::testing::Types<Ipv4Family, Ipv6Family>;
TYPED_TEST_SUITE(AddrMaskTest, Families);

bool Bit(const Bytes& bytes, unsigned index) {
    return (bytes[index / 8] >> (7 - index % 8) & 1) != 0;
}

void SetBit(Bytes& bytes, unsigned index, bool value) {
    const auto mask = static_cast<uint8_t>(0x80 >> index % 8);
    bytes[index / 8] =
        static_cast<uint8_t>(value ? bytes[index / 8] | mask : bytes[index / 8] & ~mask);
}

// A base address with ones and zeros mixed in every byte.
Bytes MixedBits(unsigned width) {
    Bytes bytes(width / 8);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        bytes[i] = static_cast<uint8_t>(i % 2 == 0 ? 0xA5 : 0x3C);
    }
    return bytes;
}

TYPED_TEST(AddrMaskTest, OverlapTableHoldsBothWays) {
    for (const auto& c : TypeParam::Overlaps()) {
        SCOPED_TRACE(std::string(c.a) + " vs " + c.b);
        const auto a = TypeParam::Parse(c.a);
        const auto b = TypeParam::Parse(c.b);
        EXPECT_EQ(a.Overlap(b), c.expected);
        EXPECT_EQ(b.Overlap(a), c.expected);
    }
}

// Two addresses that differ in bit k overlap exactly when k lies outside
// the shorter prefix; checked for every prefix length up to one past the
// width, paired with lengths around it, and every bit.
TYPED_TEST(AddrMaskTest, OverlapDependsOnlyOnTheShorterPrefix) {
    constexpr unsigned kWidth = TypeParam::kWidth;
    const Bytes base = MixedBits(kWidth);
    for (unsigned len_a = 0; len_a <= kWidth + 1; ++len_a) {
        for (unsigned len_b : {len_a, len_a + 1, 0u, kWidth + 1}) {
            for (unsigned bit = 0; bit < kWidth; ++bit) {
                Bytes flipped = base;
                SetBit(flipped, bit, !Bit(base, bit));
                const auto a = TypeParam::Make(base, len_a);
                const auto b = TypeParam::Make(flipped, len_b);
                const bool expected = bit >= std::min(len_a, len_b);
                ASSERT_EQ(a.Overlap(b), expected) << a << " vs " << b;
                ASSERT_EQ(b.Overlap(a), expected) << b << " vs " << a;
            }
        }
    }
}

TYPED_TEST(AddrMaskTest, NetworkAndBroadcastTable) {
    for (const auto& c : TypeParam::HostBits()) {
        SCOPED_TRACE(c.prefix);
        const auto value = TypeParam::Parse(c.prefix);
        EXPECT_EQ(value.IsNetworkAddr(), c.network);
        EXPECT_EQ(value.IsBroadcastAddr(), c.broadcast);
    }
}

// For every prefix length: host bits all zero make the network address and
// all one the broadcast address; changing the first or the last host bit
// undoes it unless that bit is the only host bit.
TYPED_TEST(AddrMaskTest, HostBitsAtEveryPrefixLength) {
    constexpr unsigned kWidth = TypeParam::kWidth;
    for (unsigned len = 0; len <= kWidth + 1; ++len) {
        SCOPED_TRACE("prefix length " + std::to_string(len));
        const unsigned host_bits = len >= kWidth ? 0 : kWidth - len;
        Bytes network = MixedBits(kWidth);
        Bytes broadcast = network;
        for (unsigned bit = kWidth - host_bits; bit < kWidth; ++bit) {
            SetBit(network, bit, false);
            SetBit(broadcast, bit, true);
        }
        EXPECT_TRUE(TypeParam::Make(network, len).IsNetworkAddr());
        EXPECT_EQ(TypeParam::Make(network, len).IsBroadcastAddr(), host_bits == 0);
        EXPECT_TRUE(TypeParam::Make(broadcast, len).IsBroadcastAddr());
        EXPECT_EQ(TypeParam::Make(broadcast, len).IsNetworkAddr(), host_bits == 0);
        if (host_bits == 0) {
            continue;
        }
        SetBit(network, kWidth - host_bits, true);
        SetBit(broadcast, kWidth - 1, false);
        EXPECT_FALSE(TypeParam::Make(network, len).IsNetworkAddr());
        EXPECT_EQ(TypeParam::Make(network, len).IsBroadcastAddr(), host_bits == 1);
        EXPECT_FALSE(TypeParam::Make(broadcast, len).IsBroadcastAddr());
        EXPECT_EQ(TypeParam::Make(broadcast, len).IsNetworkAddr(), host_bits == 1);
    }
}

TYPED_TEST(AddrMaskTest, EqualityComparesAddressAndPrefixLength) {
    for (const auto& c : TypeParam::Equalities()) {
        SCOPED_TRACE(std::string(c.a) + " vs " + c.b);
        const auto a = TypeParam::Parse(c.a);
        const auto b = TypeParam::Parse(c.b);
        EXPECT_EQ(a == b, c.expected);
        EXPECT_EQ(b == a, c.expected);
        EXPECT_EQ(a != b, !c.expected);
    }
}

TYPED_TEST(AddrMaskTest, DefaultIsUnspecifiedWithPrefixLengthZero) {
    const typename TypeParam::Mask value;
    EXPECT_TRUE(value.IsUnspecified());
    EXPECT_TRUE(value.addr().is_unspecified());
    EXPECT_EQ(value.prefix_len(), 0u);
    EXPECT_TRUE(value == TypeParam::Make(Bytes(TypeParam::kWidth / 8), 0));
}

TYPED_TEST(AddrMaskTest, NonzeroAddressIsSpecifiedWhateverThePrefixLength) {
    for (unsigned len : {0u, 1u, 24u, TypeParam::kWidth, TypeParam::kWidth + 1}) {
        SCOPED_TRACE("prefix length " + std::to_string(len));
        typename TypeParam::Mask value;
        value.set_addr(TypeParam::SomeAddr());
        value.set_prefix_len(len);
        EXPECT_FALSE(value.IsUnspecified());
        EXPECT_EQ(value.prefix_len(), len);

        value.set_addr({});
        EXPECT_TRUE(value.IsUnspecified());
    }
}

TYPED_TEST(AddrMaskTest, TextIsAddressSlashLength) {
    for (const auto& c : TypeParam::Texts()) {
        SCOPED_TRACE(c.input);
        EXPECT_EQ(TypeParam::Parse(c.input).to_string(), c.text);
    }
}

}  // namespace
}  // namespace nettypes_test
