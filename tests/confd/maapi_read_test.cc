/* MAAPI reads of the candidate: existence, typed values, counts, keys of every kind. */
#include <gtest/gtest.h>

#include <cstdio>
#include <utility>

#include "project_data.h"
#include "test_util.h"

namespace {

using confd_test::error;
using confd_test::outcome;
using confd_test::pp;
using ipapp_generator::Interfaces;
using ipapp_generator::L3;
using ipapp_generator::Vrf;

constexpr const char* kRoute = "/DC-RTM-MIB/rtmStaticRtTable/rtmStaticRtEntry";

class MaapiRead : public ::testing::Test {
  protected:
    ipapp_test::ConfdFixture confd{"", confd_test::Candidate()};
    int s = confd.maapi_socket();
    int th = confd.thandle();
};

TEST_F(MaapiRead, ExistsForLeavesEntriesListsAndContainers) {
    struct Case {
        const char* path;
        int exists;
    } cases[] = {
        {"/config/interface/ipapp:l3{5}/vrf", 1},
        {"/config/interface/l3{5}/vrf", 1},
        {"/device-config:config/interface/ipapp:l3{5}", 1},
        {"/config/interface/l3{10}/vrf", 0},
        {"/config/interface/l3{7}", 0},
        {"/config/interface/l3{7}/vrf", 0},
        {"/config/interface/l3", 1},
        {"/config/interface/l3{2}/ipv4/address/secondary", 0},
        {"/config/interface/l3{5}/ipv4/address/secondary", 1},
        {"/config/interface/l3{5}/ipv6/nd/ra/lifetime", 0},
        {"/internal/ospfv3-interface-l3", 1},
        {"/metacli-internal:internal/metacli-internal:vrf-config/indexTOstring{3}/vname", 1},
        // Address keys match by value, whatever their spelling.
        {"/config/interface/l3{5}/ipv6/address{2001:0db8:0::1/64}", 1},
        {"/config/interface/l3{5}/ipv6/address{2001:db8::1/65}", 0},
        {"/config/interface/l3{5}/ipv4/address/secondary{10.0.3.1/24}", 1},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(maapi_exists(s, th, "%s", c.path), c.exists) << c.path;
    }
}

// Buffers are NUL-terminated copies.
TEST_F(MaapiRead, LeavesReadBackAsTheirConfdTypes) {
    struct Case {
        const char* path;
        confd_vtype type;
        const char* text;
    } cases[] = {
        {"/config/interface/l3{5}/vrf", C_BUF, "red"},
        {"/config/interface/l3{5}/ipv4/address/ip", C_IPV4_AND_PLEN, "10.1.2.3/24"},
        {"/config/interface/l3{5}/ipv6/address{2001:db8::1/64}/ip", C_IPV6_AND_PLEN,
         "2001:db8::1/64"},
        {"/config/interface/l3{5}/lower-layer-if/vlan", C_INT32, "100"},
        {"/config/interface/l3{5}/ipv6/nd/ra/max-interval", C_UINT16, "600"},
        {"/internal/ospf-interface-l3{7 0.0.0.1 l3-5 10.1.2.3}/ospf-pm-ip-netmask", C_UINT8, "24"},
        {"/internal/ospfv3-interface-l3{2 0.0.0.1 l3-5}/ospfv3-pm-area-id", C_IPV4, "0.0.0.1"},
        {"/internal/ospf-index-to-proc-id{7}/proc_id", C_UINT32, "2"},
        {"/rtmStaticRtEntry-global{ 1 0a:00:00:00 8 0a:01:02:fe }/next-hop", C_BINARY,
         "0a:01:02:fe"},
        {"/DC-RTM-MIB/rtmStaticRtTable/rtmStaticRtEntry{0 ipv4 0a:00:00:00 8 1 0a:01:02:fe}/"
         "rtmStaticRtDestAddrType",
         C_ENUM_VALUE, "enum<1>"},
    };
    for (const Case& c : cases) {
        confd_value_t v;
        ASSERT_EQ(maapi_get_elem(s, th, &v, "%s", c.path), CONFD_OK)
            << c.path << ": " << confd_lasterr();
        EXPECT_EQ(v.type, c.type) << c.path;
        EXPECT_EQ(pp(v), c.text) << c.path;
        if (v.type == C_BUF) {
            EXPECT_STREQ(CONFD_GET_CBUFPTR(&v), c.text);
        }
        confd_free_value(&v);
        confd_free_value(&v);  // a freed buffer value holds nothing
        EXPECT_EQ(v.type == C_NOEXISTS, c.type == C_BUF || c.type == C_BINARY) << c.path;
    }
}

// What the typed getters read is proven end to end (tests/scenarios); here,
// what they refuse.
TEST_F(MaapiRead, TypedGettersCheckTheType) {
    const char* vlan_path = "/config/interface/l3{5}/lower-layer-if/vlan";
    u_int32_t wrong = 77;
    EXPECT_EQ(outcome(maapi_get_u_int32_elem(s, th, &wrong, vlan_path)),
              error(CONFD_ERR_BADTYPE, "value of type 8, not of type 12"));
    EXPECT_EQ(wrong, 77u);
    EXPECT_EQ(outcome(maapi_get_int32_elem(s, th, nullptr, vlan_path)),
              error(CONFD_ERR_PROTOUSAGE, "null result pointer"));
    const char* vrf_name = "/internal/ospf-index-to-proc-id{7}/vrf_name";
    char name[8];
    EXPECT_EQ(maapi_get_str_elem(s, th, name, sizeof name, vrf_name), CONFD_OK);
    EXPECT_STREQ(name, "red");
    EXPECT_EQ(outcome(maapi_get_str_elem(s, th, name, 3, vrf_name)),
              error(CONFD_ERR_PROTOUSAGE, "get_str_elem: 3 characters do not fit in 3 bytes"));
    EXPECT_EQ(outcome(maapi_get_str_elem(s, th, name, sizeof name,
                                         "/internal/ospf-index-to-proc-id{7}/proc_id")),
              error(CONFD_ERR_BADTYPE, "value of type 12, not of type 5"));
}

TEST_F(MaapiRead, AbsentLeavesAndWrongTargetsAreErrors) {
    struct Case {
        const char* path;
        std::string error;
    } cases[] = {
        {"/config/interface/l3{10}/vrf",
         error(CONFD_ERR_NOEXISTS, "/config/interface/l3{10}/vrf does not exist")},
        {"/config/interface/l3{7}/lower-layer-if/vlan",
         error(CONFD_ERR_NOEXISTS, "/config/interface/l3{7}/lower-layer-if/vlan does not exist")},
        {"/config/interface/l3{5}/ipv4",
         error(CONFD_ERR_BADPATH, "/config/interface/l3{5}/ipv4 is not a leaf")},
        {"/config/interface/l3{5}",
         error(CONFD_ERR_BADPATH, "/config/interface/l3{5} is not a leaf")},
    };
    for (const Case& c : cases) {
        confd_value_t v;
        EXPECT_EQ(outcome(maapi_get_elem(s, th, &v, "%s", c.path)), c.error) << c.path;
    }
}

TEST_F(MaapiRead, NumInstancesCountsEntriesUnderTheParent) {
    struct Case {
        const char* path;
        std::string result;
    } cases[] = {
        {"/config/interface/ipapp:l3", "3"},
        {"/config/interface/l3{5}/ipv4/address/secondary", "2"},
        {"/config/interface/l3{10}/ipv4/address/secondary", "0"},
        {kRoute, "2"},
        {"/config/interface/l3{7}/ipv4/address/secondary",
         error(CONFD_ERR_NOEXISTS,
               "/config/interface/l3{7}/ipv4/address/secondary does not exist")},
        {"/config/interface/l3{5}/vrf",
         error(CONFD_ERR_BADPATH, "/config/interface/l3{5}/vrf is not a list")},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(outcome(maapi_num_instances(s, th, "%s", c.path)), c.result) << c.path;
    }
}

// Keys are matched by value: hex octets in either case, numbers in any
// decimal spelling, enumerations by name, blanks and tabs anywhere between,
// keys given as values with %x / %*x.
TEST_F(MaapiRead, MultiKeyRoutesMatchKeysByValue) {
    const char* spellings[] = {
        "{0 ipv4 0a:00:00:00 8 1 0a:01:02:fe}",
        "{ 0 ipv4 0A:00:00:00 8 1 0a:01:02:FE }",
        "{0\tipv4 0a:00:00:00   8 1 0a:01:02:fe}",
        "{000 ipv4 0a:00:00:00 +8 1 0a:01:02:fe}",
    };
    for (const char* keys : spellings) {
        u_int32_t preference = 0;
        EXPECT_EQ(
            maapi_get_u_int32_elem(s, th, &preference, "%s%s/rtmStaticRtPreference", kRoute, keys),
            CONFD_OK)
            << keys << ": " << confd_lasterr();
        EXPECT_EQ(preference, 1u) << keys;
    }
    const unsigned char destination[] = {10, 0, 0, 0};
    const unsigned char next_hop[] = {10, 1, 2, 254};
    confd_value_t keys[6];
    CONFD_SET_UINT32(&keys[0], 0);
    CONFD_SET_ENUM_VALUE(&keys[1], 1);
    CONFD_SET_BINARY(&keys[2], destination, 4);
    CONFD_SET_INT32(&keys[3], 8);
    CONFD_SET_UINT32(&keys[4], 1);
    CONFD_SET_BINARY(&keys[5], next_hop, 4);
    EXPECT_EQ(maapi_exists(s, th, "%s{%*x}", kRoute, 6, keys), 1);
    EXPECT_EQ(maapi_exists(s, th, "%s{%x %x %x %x %x %x}", kRoute, &keys[0], &keys[1], &keys[2],
                           &keys[3], &keys[4], &keys[5]),
              1);
    CONFD_SET_INT32(&keys[3], 9);
    EXPECT_EQ(maapi_exists(s, th, "%s{%*x}", kRoute, 6, keys), 0);
}

TEST_F(MaapiRead, MalformedAndHostilePathsAreBadPaths) {
    const std::pair<const char*, const char*> cases[] = {
        {"", "bad path: empty path at offset 0"},
        {"config/interface", "bad path: expected '/' at offset 0"},
        {"/config/interface/l3{5", "bad path: unbalanced '{' at offset 22"},
        {"/config/interface/l3{5}}", "bad path: unexpected character after '}' at offset 23"},
        {"/config/interface/l3}5{", "bad path: unexpected character at offset 20"},
        {"/config/interface/l3{}", "bad path: empty key at offset 22"},
        {"/config/interface/l3{5 6}", "'l3' has 1 keys, 2 given"},
        {"/config/interface/nosuch", "unknown node 'nosuch' in /config/interface"},
        {"/nosuch:config/interface", "unknown node 'config' in /"},
        {"/config//interface", "bad path: bad node name at offset 8"},
        {"/config/interface/l3/vrf", "no keys given for list 'l3'"},
        {"/config/interface{5}", "keys given for 'interface', which is not a list"},
        {"/config/interface/l3{5}/ipv4/address/secondary{not-an-address}",
         "bad value 'not-an-address' for key 'ip' of 'secondary'"},
        {"/DC-RTM-MIB/rtmStaticRtTable/rtmStaticRtEntry{0 ipv9 0a 8 1 0a}",
         "bad value 'ipv9' for key 'rtmStaticRtDestAddrType' of 'rtmStaticRtEntry'"},
        {"/DC-RTM-MIB/rtmStaticRtTable/rtmStaticRtEntry{x ipv4 0a 8 1 0a}",
         "bad value 'x' for key 'rtmStaticRtVrfCmpntId' of 'rtmStaticRtEntry'"},
        {"/DC-RTM-MIB/rtmStaticRtTable/rtmStaticRtEntry{0 ipv4 0a: 8 1 0a}",
         "bad value '0a:' for key 'rtmStaticRtDestAddr' of 'rtmStaticRtEntry'"},
        {"/internal/ospf-index-to-proc-id{99999999999}/proc_id",
         "bad value '99999999999' for key 'ospf-pm-compound-id' of 'ospf-index-to-proc-id'"},
        {"/config/interface/l3{\"5}/vrf", "bad path: unterminated quoted key at offset 28"},
        {"/config/interface/l3{5}/vrf/", "bad path: bad node name at offset 28"},
        {"/config/\x01"
         "0\x02",
         "bad path: control character in path at offset 8"},
    };
    for (const auto& [path, text] : cases) {
        EXPECT_EQ(outcome(maapi_exists(s, th, "%s", path)), error(CONFD_ERR_BADPATH, text)) << path;
    }
    const std::string long_key(5000, '7');
    EXPECT_EQ(maapi_exists(s, th, "/config/interface/l3{%s}", long_key.c_str()), 0);
    EXPECT_EQ(maapi_exists(s, th, nullptr), CONFD_ERR);
    EXPECT_EQ(maapi_exists(s, th, "/config/interface/l3{%x}", nullptr), CONFD_ERR);
    EXPECT_EQ(maapi_exists(s, th, "/config/interface/l3{%n}", nullptr), CONFD_ERR);
    EXPECT_EQ(outcome(maapi_exists(s, th, "/config/interface/l3{%999999999d}", 5)),
              error(CONFD_ERR_BADPATH, "bad path: path too long"));
}

// Numbers in templates print as printf prints them, whatever the
// conversion's flags, precision and length (%x takes a value, not a
// number): a number key that is not a number shows the text in its refusal.
TEST_F(MaapiRead, NumbersInTemplatesPrintAsPrintfDoes) {
    const char* const path = "/internal/ospf-index-to-proc-id{%sz}/proc_id";
    const auto refusal = [](const std::string& text) {
        return error(
            CONFD_ERR_BADPATH,
            "bad value '" + text + "z' for key 'ospf-pm-compound-id' of 'ospf-index-to-proc-id'");
    };
    const auto expanded = [&](const char* conversion, auto number) {
        char text[64];
        std::snprintf(text, sizeof text, conversion, number);
        char fmt[128];
        std::snprintf(fmt, sizeof fmt, path, conversion);
        EXPECT_EQ(outcome(maapi_exists(s, th, fmt, number)), refusal(text)) << conversion;
    };
    expanded("%d", 7);
    expanded("%d", -2147483647 - 1);
    expanded("%i", -42);
    expanded("%u", 4294967295u);
    expanded("%u", 0u);
    expanded("%05d", 42);
    expanded("%.3u", 42u);
    expanded("%+d", 42);
    expanded("%o", 255u);
    expanded("%lu", 18446744073709551615ul);
    expanded("%lld", -9000000000ll);
}

// Data may hold keys with control characters, and the plug-in puts keys it
// read into paths with %s: they are key text in a template, written or
// printed, and only the marker bytes of expanded templates are refused. A
// path given as text (Datastore::keypath) holds no control character.
TEST(MaapiReadKeys, ControlCharactersAreKeyTextInTemplatesOnly) {
    ipapp_test::ConfdFixture confd{"", Interfaces(L3("a&#10;b", Vrf("v")))};
    const int s = confd.maapi_socket();
    const int th = confd.thandle();
    confd_value_t key;
    CONFD_SET_CBUF(&key, "a\nb", 3);
    EXPECT_EQ(maapi_exists(s, th, "/config/interface/l3{a\nb}/vrf"), 1);
    EXPECT_EQ(maapi_exists(s, th, "/config/interface/l3{%s}/vrf", "a\nb"), 1);
    EXPECT_EQ(maapi_exists(s, th, "/config/interface/l3{a%cb}/vrf", '\n'), 1);
    EXPECT_EQ(maapi_exists(s, th, "/config/interface/l3{\"a\nb\"}/vrf"), 1);
    EXPECT_EQ(maapi_exists(s, th, "/config/interface/l3{%x}/vrf", &key), 1);
    const std::string marker =
        error(CONFD_ERR_BADPATH, "bad path: control character in path at offset 22");
    EXPECT_EQ(outcome(maapi_exists(s, th,
                                   "/config/interface/l3{a\x01"
                                   "0\x02}")),
              marker);
    EXPECT_EQ(outcome(maapi_exists(s, th, "/config/interface/l3{%s}", "a\x03")), marker);
    EXPECT_EQ(outcome(maapi_exists(s, th, "/config/interface/l3{a%c}", '\x04')), marker);
    EXPECT_EQ(outcome(maapi_exists(s, th, "%s", "/config/interface/l3{a\n\x01}")),
              error(CONFD_ERR_BADPATH, "bad path: control character in path at offset 23"));
    try {
        confd.datastore().keypath("/config/interface/l3{a\nb}");
        ADD_FAILURE() << "a keypath with a newline in a key";
    } catch (const confdstore::Error& keypath_error) {
        EXPECT_STREQ(keypath_error.what(),
                     "/config/interface/l3{a\nb}: control character in path at offset 22");
    }
}

TEST_F(MaapiRead, QuotedKeysMayHoldBlanksAndBraces) {
    ipapp_test::ConfdFixture quoted{"", Interfaces(L3("a b{c}\"d", Vrf("v")))};
    EXPECT_EQ(maapi_exists(quoted.maapi_socket(), quoted.thandle(),
                           "/config/interface/l3{\"a b{c}\\\"d\"}/vrf"),
              1);
    EXPECT_EQ(
        confd_test::cursor_keys(quoted.maapi_socket(), quoted.thandle(), "/config/interface/l3"),
        std::vector<std::string>{"a b{c}\"d"});
}

// A path read again (right away, or after others; given whole or as a
// template) is found where the earlier read left it, on its own tree only.
TEST_F(MaapiRead, APathReadBeforeIsReadAgainOnEachTree) {
    ipapp_test::ConfdFixture other{"", Interfaces(L3("5", Vrf("blue")))};
    const char* vrf = "/config/interface/l3{5}/vrf";
    const char* secondary = "/config/interface/l3{5}/ipv4/address/secondary";
    char name[16];
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(maapi_exists(s, th, "%s", vrf), 1);
        ASSERT_EQ(maapi_get_str_elem(s, th, name, sizeof name, "%s", vrf), CONFD_OK);
        EXPECT_STREQ(name, "red");
        ASSERT_EQ(
            maapi_get_str_elem(other.maapi_socket(), other.thandle(), name, sizeof name, "%s", vrf),
            CONFD_OK);
        EXPECT_STREQ(name, "blue");
        EXPECT_EQ(maapi_num_instances(s, th, "%s", secondary), 2);
        EXPECT_EQ(maapi_num_instances(other.maapi_socket(), other.thandle(), "%s", secondary), 0);
        ASSERT_EQ(maapi_get_str_elem(s, th, name, sizeof name, "/config/interface/l3{%d}/vrf", 5),
                  CONFD_OK);
        EXPECT_STREQ(name, "red");
    }
}

// What reading path gives: its existence, then its value or error.
std::string ReadOutcome(int s, int th, const char* path) {
    std::string text = "exists " + outcome(maapi_exists(s, th, "%s", path));
    confd_value_t v;
    const int read = maapi_get_elem(s, th, &v, "%s", path);
    text += ", value " + (read == CONFD_OK ? pp(v) : outcome(read));
    if (read == CONFD_OK) {
        confd_free_value(&v);
    }
    return text;
}

// A path read right after another that shares its first steps gives what it
// gives after an unrelated read: the steps taken over are whole steps of
// both, keys holding '/' included, and are checked as the new path needs.
TEST_F(MaapiRead, APathReadAfterOneSharingItsFirstStepsReadsAsAlone) {
    struct Case {
        const char* before;
        const char* path;
    } cases[] = {
        {"/config/interface/l3{5}/ipv4/address/secondary",
         "/config/interface/l3{5}/ipv4/address/secondary{10.0.3.1/24}/ip"},
        {"/config/interface/l3{5}/ipv4/address/secondary{10.0.3.1/24}",
         "/config/interface/l3{5}/ipv4/address/secondary{10.0.3.1/25}"},
        {"/config/interface/l3{5}/ipv4/address/secondary{10.0.3.1/2}",
         "/config/interface/l3{5}/ipv4/address/secondary{10.0.3.1/24}/ip"},
        {"/config/interface/l3", "/config/interface/l3/vrf"},
        {"/config/interface/l3{5}/vrf", "/config/interface/l3{5}/vrf/name"},
        {"/config/interface/l3{5}/vrf", "/config/interface/l3{5}/vrfs"},
        {"/config/interface/l3{5}/vrf", "/config/interface/l3{5}"},
        {"/config/interface/l3{5}/vrf", "/config/interface/l3{5}/ipv4/address/ip{1}"},
        {"/config/interface/l3{5}/vrf", "/config/interface/l3{5}//vrf"},
        {"/config/interface/l3{5}/vrf", "/config/interface/l3{5}/ipv6/address{zz}/ip"},
        {"/config/interface/l3{7}/vrf", "/config/interface/l3{7}"},
        {"/config/interface/l3{7}/vrf", "/config/interface/l3{7}/ipv6/address{zz}/ip"},
        {"/config/interface/l3{7}", "/config/interface/l3{7}/ipv4/address/ip"},
        {"/config/interface/l3{10}/vrf", "/config/interface/l3{5}/vrf"},
        {"/internal/ospf-index-to-proc-id{7}/proc_id",
         "/internal/ospf-index-to-proc-id{7}/vrf_name"},
    };
    for (const Case& c : cases) {
        maapi_exists(s, th, "%s", "/internal");
        const std::string alone = ReadOutcome(s, th, c.path);
        maapi_exists(s, th, "%s", c.before);
        EXPECT_EQ(ReadOutcome(s, th, c.path), alone) << c.before << " then " << c.path;
    }
    maapi_exists(s, th, "%s", "/config/interface/l3");
    EXPECT_EQ(confd_test::cursor_keys(s, th, "/config/interface/l3"),
              (std::vector<std::string>{"10", "2", "5"}));
}

TEST_F(MaapiRead, KeypathTemplatesResolveTagsByHash) {
    const confdstore::Keypath kp = confd.datastore().keypath("/config/interface/l3{5}/ipv6/nd/ra");
    u_int16_t value = 0;
    EXPECT_EQ(maapi_get_u_int16_elem(s, th, &value, "%h/min-interval", &kp.get()), CONFD_OK)
        << confd_lasterr();
    EXPECT_EQ(value, 450);
    EXPECT_EQ(maapi_exists(s, th, "%*h/vrf", 4, &kp.get()), 1);
    EXPECT_EQ(maapi_exists(s, th, "/config%h", &kp.get()), CONFD_ERR);
}

}  // namespace
