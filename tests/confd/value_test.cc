/* Printing, copying, comparing and freeing values; the transaction error text. */
#include <arpa/inet.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <functional>
#include <thread>

#include "test_util.h"

namespace {

using confd_test::pp;

confd_value_t make(const std::function<void(confd_value_t*)>& set) {
    confd_value_t v;
    set(&v);
    return v;
}

struct PrintCase {
    confd_value_t value;
    const char* text;
};

const unsigned char kOctets[] = {0x0a, 0x00, 0xff, 0x01};
const unsigned char kText[] = {'w', 'w', 'w', 'x'};

std::vector<PrintCase> print_cases() {
    in_addr v4;
    inet_pton(AF_INET, "10.1.2.3", &v4);
    in6_addr v6;
    inet_pton(AF_INET6, "2001:db8::1", &v6);
    confd_ipv4_prefix p4{v4, 24};
    confd_ipv6_prefix p6{v6, 64};
    return {
        {make([](auto v) { CONFD_SET_BUF(v, kText, 3); }), "www"},
        {make([](auto v) { CONFD_SET_STR(v, "abc"); }), "abc"},
        {make([](auto v) { CONFD_SET_INT8(v, -128); }), "-128"},
        {make([](auto v) { CONFD_SET_INT32(v, -2147483647 - 1); }), "-2147483648"},
        {make([](auto v) { CONFD_SET_UINT32(v, 4294967295u); }), "4294967295"},
        {make([](auto v) { CONFD_SET_UINT64(v, 18446744073709551615ull); }),
         "18446744073709551615"},
        {make([](auto v) { CONFD_SET_ENUM_VALUE(v, 16); }), "enum<16>"},
        {make([](auto v) { CONFD_SET_BOOL(v, 1); }), "true"},
        {make([&](auto v) { CONFD_SET_IPV4(v, v4); }), "10.1.2.3"},
        {make([&](auto v) { CONFD_SET_IPV6(v, v6); }), "2001:db8::1"},
        {make([&](auto v) { CONFD_SET_IPV4_AND_PLEN(v, p4); }), "10.1.2.3/24"},
        {make([&](auto v) { CONFD_SET_IPV6_AND_PLEN(v, p6); }), "2001:db8::1/64"},
        {make([](auto v) { CONFD_SET_BINARY(v, kOctets, 4); }), "0a:00:ff:01"},
        {make([](auto v) { CONFD_SET_BINARY(v, kOctets, 0); }), ""},
        {make([](auto v) { CONFD_SET_XMLTAG(v, 12345, 1); }), "tag<12345>"},
        {make([](auto v) { CONFD_SET_NOEXISTS(v); }), ""},
    };
}

TEST(PrettyPrint, EveryTypeTheProjectUses) {
    for (const PrintCase& c : print_cases()) {
        EXPECT_EQ(pp(c.value), c.text);
    }
}

TEST(PrettyPrint, WorksLikeSnprintf) {
    confd_value_t v;
    CONFD_SET_STR(&v, "abcdef");
    struct Case {
        int bufsiz;
        const char* written;
    } cases[] = {{0, "untouched"}, {1, ""},       {4, "abc"},
                 {6, "abcde"},     {7, "abcdef"}, {64, "abcdef"}};
    for (const Case& c : cases) {
        char buf[64] = "untouched";
        EXPECT_EQ(confd_pp_value(buf, c.bufsiz, &v), 6) << c.bufsiz;
        EXPECT_STREQ(buf, c.written) << c.bufsiz;
    }
    EXPECT_EQ(confd_pp_value(nullptr, 0, &v), 6);
    EXPECT_EQ(confd_pp_value(nullptr, 0, nullptr), 0);
}

confd_hkeypath_t servers_keypath() {
    static const unsigned char www[] = "www";
    static const unsigned char spaced[] = "a b";
    confd_hkeypath_t kp{};
    kp.len = 4;
    CONFD_SET_XMLTAG(&kp.v[3][0], 1, 0);
    CONFD_SET_XMLTAG(&kp.v[2][0], 2, 0);
    CONFD_SET_BUF(&kp.v[1][0], www, 3);
    CONFD_SET_BUF(&kp.v[1][1], spaced, 3);
    CONFD_SET_INT32(&kp.v[1][2], 7);
    CONFD_SET_NOEXISTS(&kp.v[1][3]);
    CONFD_SET_XMLTAG(&kp.v[0][0], 3, 0);
    return kp;
}

TEST(PrettyPrint, KeypathsFromTheRootWithQuotedKeys) {
    const confd_hkeypath_t kp = servers_keypath();
    EXPECT_EQ(pp(kp), "/tag<1>/tag<2>{www \"a b\" 7}/tag<3>");
    char buf[8];
    EXPECT_EQ(confd_pp_kpath(buf, sizeof buf, &kp), static_cast<int>(pp(kp).size()));
    EXPECT_STREQ(buf, "/tag<1>");
    EXPECT_EQ(confd_pp_kpath(buf, sizeof buf, nullptr), 0);
}

TEST(ValueCopies, EqualityNeedsTypeAndPayload) {
    in_addr a;
    inet_pton(AF_INET, "10.0.0.1", &a);
    confd_ipv4_prefix p24{a, 24};
    confd_ipv4_prefix p16{a, 16};
    struct Case {
        confd_value_t x, y;
        bool equal;
    } cases[] = {
        {make([](auto v) { CONFD_SET_INT32(v, 5); }), make([](auto v) { CONFD_SET_INT32(v, 5); }),
         true},
        {make([](auto v) { CONFD_SET_INT32(v, 5); }), make([](auto v) { CONFD_SET_UINT32(v, 5); }),
         false},
        {make([&](auto v) { CONFD_SET_IPV4_AND_PLEN(v, p24); }),
         make([&](auto v) { CONFD_SET_IPV4_AND_PLEN(v, p16); }), false},
        {make([](auto v) { CONFD_SET_BINARY(v, kOctets, 4); }),
         make([](auto v) { CONFD_SET_BINARY(v, kOctets, 3); }), false},
        {make([](auto v) { CONFD_SET_STR(v, "a"); }), make([](auto v) { CONFD_SET_STR(v, "a"); }),
         true},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(confd_val_eq(&c.x, &c.y) > 0, c.equal) << pp(c.x) << " vs " << pp(c.y);
    }
    EXPECT_EQ(confd_val_eq(nullptr, &cases[0].y), 0);
}

TEST(TransactionError, FormattedTextIsReplacedAndReleased) {
    confd_trans_ctx tctx{};
    confd_trans_seterr(&tctx, "vlan %d cannot be changed", 100);
    EXPECT_STREQ(tctx.error.str, "vlan 100 cannot be changed");
    confd_trans_seterr(&tctx, "%s", "100% sure");
    EXPECT_STREQ(tctx.error.str, "100% sure");
    EXPECT_EQ(tctx.error.code, CONFD_ERRCODE_APPLICATION);
    confd_trans_clear_err(&tctx);
    EXPECT_EQ(tctx.error.str, nullptr);
    confd_trans_seterr(nullptr, "ignored");
}

TEST(ErrorState, IsPerThread) {
    confd_errno = CONFD_ERR_BADPATH;
    int other = -1;
    std::thread([&] { other = confd_errno; }).join();
    EXPECT_EQ(other, 0);
    EXPECT_EQ(confd_errno, CONFD_ERR_BADPATH);
}

}  // namespace
