// Single addresses of both families, held through their base as the
// plug-in holds a route's next hop.
#include <gtest/gtest.h>

#include "address_text.h"

namespace nettypes_test {
namespace {

struct TextCase {
    const char* input;
    const char* text;
    bool unspecified;
};

const TextCase kTextCases[] = {
    {"0.0.0.0", "0.0.0.0", true},
    {"10.0.0.1", "10.0.0.1", false},
    {"255.255.255.255", "255.255.255.255", false},
    {"0:0:0:0:0:0:0:0", "::", true},
    {"0:0:0:0:0:0:0:1", "::1", false},
    {"8000:0:0:0:0:0:0:0", "8000::", false},
    {"2001:0DB8:0000:0000:0000:0000:0000:0001", "2001:db8::1", false},
    // A single zero group is "0", never "::".
    {"2001:db8:0:1:1:1:1:1", "2001:db8:0:1:1:1:1:1", false},
    // The longest run is shortened; on a tie the first one.
    {"2001:db8:0:0:1:0:0:1", "2001:db8::1:0:0:1", false},
    {"0:0:1:0:0:0:0:0", "0:0:1::", false},
    {"0:0:1:0:0:1:0:0", "::1:0:0:1:0:0", false},
    // IPv4-mapped addresses end in dotted decimal; other embeddings do not.
    {"::ffff:192.0.2.1", "::ffff:192.0.2.1", false},
    {"::ffff:0:0", "::ffff:0.0.0.0", false},
    {"::192.0.2.1", "::c000:201", false},
    {"1::ffff:192.0.2.1", "1::ffff:c000:201", false},
    {"64:ff9b::192.0.2.1", "64:ff9b::c000:201", false},
};

TEST(AddressTest, TextFormStreamAndUnspecified) {
    for (const auto& c : kTextCases) {
        SCOPED_TRACE(c.input);
        const auto addr = Address(c.input);
        EXPECT_EQ(addr->to_string(), c.text);
        EXPECT_EQ(Streamed(*addr), c.text);
        EXPECT_EQ(addr->is_unspecified(), c.unspecified);
        EXPECT_TRUE(*Address(c.text) == *addr);
    }
}

struct PairCase {
    const char* a;
    const char* b;
    bool equal;
};

const PairCase kEqualityCases[] = {
    {"10.0.0.1", "10.0.0.1", true},
    {"10.0.0.1", "10.0.0.2", false},
    {"10.0.0.1", "138.0.0.1", false},
    {"2001:db8::1", "2001:db8:0::1", true},
    {"2001:db8::1", "3001:db8::1", false},
    {"2001:db8::1", "2001:db8::", false},
    // Across families never equal, not even both zero or both one.
    {"0.0.0.0", "::", false},
    {"0.0.0.1", "::1", false},
};

TEST(AddressTest, EqualityIsByFamilyAndValue) {
    for (const auto& c : kEqualityCases) {
        SCOPED_TRACE(std::string(c.a) + " vs " + c.b);
        const auto a = Address(c.a);
        const auto b = Address(c.b);
        EXPECT_EQ(*a == *b, c.equal);
        EXPECT_EQ(*b == *a, c.equal);
        EXPECT_EQ(*a != *b, !c.equal);
    }
}

}  // namespace
}  // namespace nettypes_test
