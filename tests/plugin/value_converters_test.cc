// Converters of the route table's key values, and the type assertions on
// the keys the route's output interface is looked up by.
#include "ip_app_valid/confd_api.h"

#include <gtest/gtest.h>

#include <vector>

#include "ip_app_valid/generic_config.h"
#include "ip_app_valid/l3_config.h"
#include "snapshot.h"

namespace {

using ip_application::config_valid::L3Config;
using plugin_test::V6;

// Unbound: the converters need no MAAPI.
const L3Config kReader;

confd_value_t Binary(const std::vector<unsigned char>& bytes) {
    confd_value_t value;
    CONFD_SET_BINARY(&value, bytes.data(), static_cast<unsigned>(bytes.size()));
    return value;
}

confd_value_t Int32(int32_t i) {
    confd_value_t value;
    CONFD_SET_INT32(&value, i);
    return value;
}

confd_value_t Uint32(uint32_t u) {
    confd_value_t value;
    CONFD_SET_UINT32(&value, u);
    return value;
}

confd_value_t Buffer(const char* text) {
    confd_value_t value;
    CONFD_SET_CBUF(&value, text, static_cast<unsigned>(strlen(text)));
    return value;
}

TEST(HexFromBin, PrintsEachByteAsTwoLowerCaseDigits) {
    struct Case {
        std::vector<unsigned char> bytes;
        const char* hex;
    };
    const Case cases[] = {
        {{10, 0, 0, 1}, "0a:00:00:01"},
        {{255}, "ff"},
        {{0xAB, 0xCD}, "ab:cd"},
        {{0x20, 0x01, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1},
         "20:01:0d:b8:00:00:00:00:00:00:00:00:00:00:00:01"},
    };
    for (const Case& c : cases) {
        const std::vector<unsigned char> bytes = c.bytes;
        EXPECT_EQ(kReader.get_hex_from_bin(Binary(bytes)), c.hex);
    }
    EXPECT_EQ(kReader.get_hex_from_bin(Buffer("0a")), "");
    EXPECT_EQ(kReader.get_hex_from_bin(Uint32(10)), "");
}

TEST(AddressConverters, ReadBinaryValuesInNetworkOrder) {
    const std::vector<unsigned char> ipv4 = {192, 168, 1, 254};
    EXPECT_EQ(kReader.get_ipv4_addr(Binary(ipv4)).to_string(), "192.168.1.254");
    const std::vector<unsigned char> ipv6 = {0x20, 0x01, 0x0d, 0xb8, 0, 0, 0, 0,
                                             0,    0,    0,    0,    0, 0, 0, 9};
    EXPECT_EQ(kReader.get_ipv6_addr(Binary(ipv6)), V6("2001:db8::9").addr());
    // A short value reads as if padded with zero bytes.
    const std::vector<unsigned char> short_ipv4 = {10, 1};
    EXPECT_EQ(kReader.get_ipv4_addr(Binary(short_ipv4)).to_string(), "10.1.0.0");
}

TEST(AddressConverters, NonBinaryValuesGiveTheUnspecifiedAddress) {
    confd_value_t ipv4_value;
    CONFD_SET_IPV4(&ipv4_value, in_addr{htonl(0x0a000001)});
    for (const confd_value_t& value : {ipv4_value, Buffer("10.0.0.1"), Uint32(0x0a000001)}) {
        EXPECT_TRUE(kReader.get_ipv4_addr(value).is_unspecified());
        EXPECT_TRUE(kReader.get_ipv6_addr(value).is_unspecified());
    }
}

// A cursor standing on a route with the given prefix length and forwarding
// table index keys.
maapi_cursor RouteCursor(const confd_value_t& prefix_len, const confd_value_t& fte_index) {
    static const std::vector<unsigned char> addr = {10, 0, 0, 0};
    maapi_cursor cursor{};
    CONFD_SET_UINT32(&cursor.keys[0], 0);
    CONFD_SET_ENUM_VALUE(&cursor.keys[1], 1);
    cursor.keys[2] = Binary(addr);
    cursor.keys[3] = prefix_len;
    cursor.keys[4] = fte_index;
    cursor.keys[5] = Binary(addr);
    cursor.n = 6;
    return cursor;
}

TEST(IntfNameFromRouteDeathTest, PrefixLengthAndTableIndexKeysMustHaveTheirTypes) {
    maapi_cursor uint_prefix = RouteCursor(Uint32(8), Uint32(1));
    EXPECT_DEATH(kReader.get_intf_name_from_route(uint_prefix),
                 "src/lib/config:[0-9]+: .*get_intf_name_from_route.*: Assertion "
                 "`\\(&cursor\\.keys\\[kNetworkPrefixLenId\\]\\)->type == C_INT32' failed\\.");
    maapi_cursor int_index = RouteCursor(Int32(8), Int32(1));
    EXPECT_DEATH(kReader.get_intf_name_from_route(int_index),
                 "src/lib/config:[0-9]+: .*get_intf_name_from_route.*: Assertion "
                 "`\\(&cursor\\.keys\\[kFteIndex\\]\\)->type == C_UINT32' failed\\.");
}

}  // namespace
