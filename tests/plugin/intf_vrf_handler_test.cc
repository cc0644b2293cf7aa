// The VRF change rule: the address and OSPFv2 checks first, then OSPFv3
// interfaces refuse a VRF, found by walking the transaction's changes.
#include "ip_app_valid/confd_api.h"

#include <gtest/gtest.h>
#include <ipapp.h>

#include <list>
#include <string>

#include "configuration_xml.h"
#include "datastore_call.h"
#include "ip_app_valid.h"
#include "ip_app_valid/validate_intf_vrf.h"
#include "ospfv3_xml.h"

namespace {

using plugin_test::DatastoreCall;
using plugin_test::L3;
using plugin_test::L3IPv4;
using plugin_test::ListKeypath;
using plugin_test::Loopback;
using plugin_test::LoopbackIPv4;
using plugin_test::OspfInterface;
using plugin_test::OspfProcess;
using plugin_test::Ospfv3Interface;
using plugin_test::Vrf;

// The interface entries and the internal entries of a configuration.
std::string Configuration(const std::string& interfaces, const std::string& internal = "") {
    return plugin_test::Interfaces(interfaces) + plugin_test::Internal(internal);
}

std::string Ospfv3(const std::string& intf_name) {
    return Ospfv3Interface(1, "0.0.0.0", intf_name, 1000001);
}

struct Case {
    const char* what;
    std::string running;
    std::string candidate;
    u_int32_t list_tag;
    int32_t result;
    std::string error;
};

void ExpectVerdicts(const Case* begin, const Case* end) {
    for (const Case* c = begin; c != end; ++c) {
        DatastoreCall call(c->running, c->candidate);
        EXPECT_EQ(call.Run(validate_intf_vrf, ListKeypath(c->list_tag)), c->result) << c->what;
        EXPECT_EQ(call.error_text(), c->error) << c->what;
    }
}

template <size_t N>
void ExpectVerdicts(const Case (&cases)[N]) {
    ExpectVerdicts(cases, cases + N);
}

const std::string kL3InOspfv3 = "l3 5 is configured in OSPFv3 and cannot be associated with a VRF";

TEST(ValidateIntfVrf, Ospfv3InterfacesTakeNoVrf) {
    const std::string l3_ospf = Ospfv3("l3-5");
    const Case cases[] = {
        {"vrf set", Configuration(L3("5"), l3_ospf), Configuration(L3("5", Vrf("red")), l3_ospf),
         ipapp_l3, -1, kL3InOspfv3},
        {"vrf set to global", Configuration(L3("5"), l3_ospf),
         Configuration(L3("5", Vrf("global")), l3_ospf), ipapp_l3, -1, kL3InOspfv3},
        {"vrf changed", Configuration(L3("5", Vrf("red")), l3_ospf),
         Configuration(L3("5", Vrf("blue")), l3_ospf), ipapp_l3, -1, kL3InOspfv3},
        {"new interface with a vrf", "", Configuration(L3("5", Vrf("red")), l3_ospf), ipapp_l3, -1,
         kL3InOspfv3},
        {"loopback vrf set", Configuration(Loopback("1")),
         Configuration(Loopback("1", Vrf("red")), Ospfv3("loopback-1")), ipapp_loopback, -1,
         "loopback 1 is configured in OSPFv3 and cannot be associated with a VRF"},
        {"vrf deleted", Configuration(L3("5", Vrf("red")), l3_ospf),
         Configuration(L3("5"), l3_ospf), ipapp_l3, 0, ""},
        {"vrf kept, address changed",
         Configuration(L3("5", Vrf("red") + L3IPv4("10.0.0.1/24")), l3_ospf),
         Configuration(L3("5", Vrf("red") + L3IPv4("10.0.0.2/24")), l3_ospf), ipapp_l3, 0, ""},
        {"another interface in ospfv3", Configuration(L3("5")),
         Configuration(L3("5", Vrf("red")), Ospfv3("l3-6")), ipapp_l3, 0, ""},
        {"the loopback of the same key in ospfv3", Configuration(L3("5")),
         Configuration(L3("5", Vrf("red")), Ospfv3("loopback-5")), ipapp_l3, 0, ""},
        {"point on l3, vrf set on a loopback", Configuration(Loopback("1")),
         Configuration(Loopback("1", Vrf("red")), Ospfv3("loopback-1")), ipapp_l3, 0, ""},
        {"point on mgmt", Configuration(L3("5")), Configuration(L3("5", Vrf("red")), l3_ospf),
         ipapp_mgmt, 0, ""},
        {"point on another node", Configuration(L3("5")),
         Configuration(L3("5", Vrf("red")), l3_ospf), ipapp_vrf, 0, ""},
    };
    ExpectVerdicts(cases);
}

TEST(ValidateIntfVrf, FirstConflictStopsTheWalk) {
    // A walk that went on past l3 5 would lose its text at l3 6 or report l3 7.
    const std::string interfaces = L3("5", Vrf("red")) + L3("6", Vrf("red")) + L3("7", Vrf("red"));
    const Case cases[] = {
        {"three vrfs set", Configuration(L3("5") + L3("6") + L3("7")),
         Configuration(interfaces, Ospfv3("l3-5") + Ospfv3("l3-7")), ipapp_l3, -1, kL3InOspfv3},
    };
    ExpectVerdicts(cases);
}

TEST(ValidateIntfVrf, ChecksRunInOrderAndTheFirstFailureIsReported) {
    const std::string overlapping =
        L3("5", Vrf("red") + L3IPv4("10.0.0.1/24")) + L3("6", Vrf("red") + L3IPv4("10.0.0.2/24"));
    const std::string ospfv2_blue =
        OspfInterface("1", "0.0.0.0", "l3-5", "10.0.0.1", 24) + OspfProcess(1, 7, "blue");
    const std::string duplicate_loopback =
        Loopback("1", LoopbackIPv4({"10.1.1.1/24", "10.1.1.1/32"}));
    const Case cases[] = {
        {"address conflict hides ospfv2 and ospfv3", Configuration(""),
         Configuration(overlapping, ospfv2_blue + Ospfv3("l3-5")), ipapp_l3, -1,
         "l3 5 vrf red ipv4 address 10.0.0.1/24 overlaps with l3 6 vrf red ipv4 address "
         "10.0.0.2/24."},
        {"ospfv2 vrf hides ospfv3", Configuration(""),
         Configuration(L3("5", Vrf("red") + L3IPv4("10.0.0.1/24")), ospfv2_blue + Ospfv3("l3-5")),
         ipapp_l3, -1,
         "l3 5 vrf red and router ospf 7 vrf blue cannot be associated with divergent VRF"},
        {"addresses of the point's kind are checked", Configuration(""),
         Configuration(duplicate_loopback), ipapp_loopback, -1,
         "loopback 1 has duplicated IPv4 address 10.1.1.1"},
        {"another kind's addresses are not", Configuration(""), Configuration(duplicate_loopback),
         ipapp_l3, 0, ""},
        {"no kind, no address check", Configuration(""), Configuration(duplicate_loopback),
         ipapp_vrf, 0, ""},
        {"no kind, ospfv2 still checked", Configuration(""),
         Configuration(L3("5", Vrf("red") + L3IPv4("10.0.0.1/24")), ospfv2_blue), ipapp_vrf, -1,
         "l3 5 vrf red and router ospf 7 vrf blue cannot be associated with divergent VRF"},
    };
    ExpectVerdicts(cases);
}

TEST(ValidateIntfVrf, ReadsTheIpv4SnapshotOnly) {
    DatastoreCall call("", Configuration(L3("5", L3IPv4("10.0.0.1/24"))));
    ASSERT_EQ(call.Run(validate_intf_vrf, ListKeypath(ipapp_l3)), 0);
    const ip_application::config_valid::Config& config = call.config();
    const ip_application::config_valid::GenericConfig* readers[] = {
        &config.l3_config, &config.lo_config, &config.mgmt_config, &config.static_route_config,
        &config.ospfv2_config};
    for (const ip_application::config_valid::GenericConfig* reader : readers) {
        EXPECT_TRUE(reader->ipv4_read());
        EXPECT_FALSE(reader->ipv6_read());
    }
    EXPECT_EQ(config.l3_config.interfaces().size(), 1u);
}

// A keypath of the given length whose elements are all tags, the innermost
// the l3 list's.
confd_hkeypath_t TagKeypath(int len) {
    confd_hkeypath_t keypath = ListKeypath(ipapp_l3);
    keypath.len = len;
    for (int i = 1; i < len; ++i) {
        CONFD_SET_XMLTAG(&keypath.v[i][0], ipapp_l3, 0);
    }
    return keypath;
}

TEST(ValidateIntfVrf, OnlyTheListKeypathReachesOspfv3) {
    struct LengthCase {
        int len;
        int32_t result;
    };
    const LengthCase cases[] = {{3, -1}, {1, 0}, {2, 0}, {4, 0}, {5, 0}, {6, 0}, {7, 0}};
    for (const LengthCase& c : cases) {
        DatastoreCall call(Configuration(L3("5")),
                           Configuration(L3("5", Vrf("red")), Ospfv3("l3-5")));
        EXPECT_EQ(call.Run(validate_intf_vrf, TagKeypath(c.len)), c.result) << c.len;
    }
}

TEST(ValidateIntfVrf, HelpersReadTheTransaction) {
    DatastoreCall call("", Configuration(L3("7", L3IPv4("10.0.0.1/24")) + L3("5") + Loopback("1")));
    ValidateIntfL3Vrf iterator(call.maapi_socket(), call.tctx(), "/config/interface/l3");
    EXPECT_EQ(iterator.get_key_list("/config/interface/l3"), (std::list<std::string>{"5", "7"}));
    EXPECT_EQ(iterator.get_key_list("/config/interface/mgmt"), std::list<std::string>{});
    EXPECT_EQ(iterator.get_ipv4_addr_mask("/config/interface/l3{7}/ipv4/address/ip").to_string(),
              "10.0.0.1/24");
    EXPECT_TRUE(
        iterator.get_ipv4_addr_mask("/config/interface/l3{5}/ipv4/address/ip").IsUnspecified());
}

constexpr const char* kHandlerSignature =
    "int32_t validate_intf_vrf\\(int32_t, confd_trans_ctx\\*, confd_hkeypath_t\\*, "
    "confd_value_t\\*, ip_application::config_valid::Config&\\)";

TEST(ValidateIntfVrfDeathTest, SixElementKeypathHasATagAtElementFour) {
    DatastoreCall call("", "");
    confd_hkeypath_t keypath = TagKeypath(6);
    CONFD_SET_CBUF(&keypath.v[4][0], "5", 1);
    EXPECT_DEATH(call.Run(validate_intf_vrf, keypath),
                 std::string("src/lib/validate_intf_vrf:[0-9]+: ") + kHandlerSignature +
                     ": Assertion `\\(&keypath->v\\[4\\]\\[0\\]\\)->type == C_XMLTAG' failed\\.");
}

TEST(ValidateIntfVrfDeathTest, SetValueKeypathShapes) {
    confd_trans_ctx tctx{};
    tctx.thandle = -1;
    confd_value_t red{};
    CONFD_SET_CBUF(&red, "red", 3);
    confd_hkeypath_t leaf_not_a_tag{};
    CONFD_SET_CBUF(&leaf_not_a_tag.v[0][0], "vrf", 3);
    confd_hkeypath_t key_not_a_string{};
    CONFD_SET_XMLTAG(&key_not_a_string.v[0][0], ipapp_vrf, 0);
    CONFD_SET_UINT32(&key_not_a_string.v[1][0], 5);
    ValidateIntfL3Vrf l3(-1, &tctx, "/config/interface/l3");
    ValidateIntfLoVrf lo(-1, &tctx, "/config/interface/loopback");
    ValidateIntfVrfOspfv3 ospfv3(-1, &tctx, "");
    const std::string leaf_assertion =
        "src/lib/validate_intf_vrf:[0-9]+: .*: Assertion `\\(&kp->v\\[0\\]\\[0\\]\\)->type == "
        "C_XMLTAG' failed\\.";
    const std::string key_assertion =
        "src/lib/validate_intf_vrf:[0-9]+: .*: Assertion `\\(&kp->v\\[1\\]\\[0\\]\\)->type == "
        "C_BUF' failed\\.";
    struct DeathCase {
        ValidateIntfVrf* iterator;
        confd_hkeypath_t* kp;
        std::string message;
    };
    const DeathCase cases[] = {
        {&l3, &leaf_not_a_tag, leaf_assertion},     {&lo, &leaf_not_a_tag, leaf_assertion},
        {&ospfv3, &leaf_not_a_tag, leaf_assertion}, {&l3, &key_not_a_string, key_assertion},
        {&lo, &key_not_a_string, key_assertion},
    };
    for (const DeathCase& c : cases) {
        EXPECT_DEATH(c.iterator->IterValidate(c.kp, MOP_VALUE_SET, nullptr, &red), c.message);
    }
}

}  // namespace
