// The type assertions: a keypath element or a value of an unexpected type
// stops the process with the expression, the reporting source and function.
// Keypaths the tool can hand a point (--call) are proven end to end
// (tests/scenarios); here, what only a unit can give.
#include "ip_app_valid/confd_api.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <ipapp.h>

#include <cstring>
#include <functional>
#include <string>
#include <utility>

#include "config_xml.h"
#include "datastore_call.h"
#include "ip_app_valid.h"
#include "ip_app_valid/config.h"
#include "ip_app_valid/validate_intf_vrf.h"

namespace {

using ip_application::config_valid::L3Config;
using plugin_test::DatastoreCall;
using ::testing::AllOf;
using ::testing::ContainsRegex;
using ::testing::HasSubstr;

confd_value_t Buf(const char* text) {
    confd_value_t value;
    CONFD_SET_CBUF(&value, text, strlen(text));
    return value;
}
confd_value_t U32(uint32_t number) {
    confd_value_t value;
    CONFD_SET_UINT32(&value, number);
    return value;
}
confd_value_t I32(int32_t number) {
    confd_value_t value;
    CONFD_SET_INT32(&value, number);
    return value;
}
confd_value_t Tag(uint32_t tag) {
    confd_value_t value;
    CONFD_SET_XMLTAG(&value, tag, 0);
    return value;
}

// An l3 list keypath of the length given with the elements given replaced.
confd_hkeypath_t Keypath(int len, std::initializer_list<std::pair<int, confd_value_t>> elements) {
    confd_hkeypath_t keypath = plugin_test::ListKeypath(ipapp_l3);
    keypath.len = len;
    for (const auto& [index, value] : elements) {
        keypath.v[index][0] = value;
    }
    return keypath;
}

// Calls a new iterator with a change of the vrf leaf at kp.
template <typename Iterator>
void Iterate(confd_hkeypath_t kp) {
    confd_trans_ctx tctx{};
    tctx.thandle = -1;
    confd_value_t red = Buf("red");
    Iterator(-1, &tctx, "").IterValidate(&kp, MOP_VALUE_SET, nullptr, &red);
}

// The route table's keys with the prefix length and forwarding table index given.
std::string RouteInterfaceName(confd_value_t prefix_len, confd_value_t fte_index) {
    static unsigned char address[4] = {10, 0, 0, 0};
    maapi_cursor cursor{};
    CONFD_SET_BINARY(&cursor.keys[2], address, 4);
    CONFD_SET_BINARY(&cursor.keys[5], address, 4);
    cursor.keys[3] = prefix_len;
    cursor.keys[4] = fte_index;
    cursor.n = 6;
    return L3Config().get_intf_name_from_route(cursor);
}

// A model of one module, named like the project's, whose l3 key and OSPFv3
// keys have the types given.
confdstore::Schema Model(const std::string& l3_key, const std::string& process,
                         const std::string& area, const std::string& name) {
    return plugin_test::SchemaOf(
        "ipapp", R"(module ipapp { yang-version 1.1; namespace "urn:m"; prefix ipapp;
      import ipapp-types { prefix t; }
      container config { container interface { list l3 { key "name"; leaf name { type )" +
                     l3_key + R"(; }
        container lower-layer-if { leaf vlan { type int32; } } } } }
      container internal { list ospfv3-interface-l3 {
        key "ospfv3-pm-proc-id ospfv3-pm-area-id ospfv3-pm-if-name";
        leaf ospfv3-pm-proc-id { type )" +
                     process + "; } leaf ospfv3-pm-area-id { type " + area +
                     "; } leaf ospfv3-pm-if-name { type " + name + "; } } } }");
}
// l3 5 on the VLAN in that model, with an OSPFv3 entry of the keys given.
std::string L3Vlan(int vlan, const std::string& ospfv3_keys = "") {
    return "<config xmlns=\"urn:m\"><interface><l3><name>5</name><lower-layer-if><vlan>" +
           std::to_string(vlan) + "</vlan></lower-layer-if></l3></interface></config>" +
           (ospfv3_keys.empty() ? ""
                                : "<internal xmlns=\"urn:m\"><ospfv3-interface-l3>" + ospfv3_keys +
                                      "</ospfv3-interface-l3></internal>");
}

// A key leaf of an OSPFv3 entry: its type in the model and its value.
struct Key {
    const char* type;
    const char* value;
};

// The lower-layer rule on l3 5, whose VLAN changes while an OSPFv3 entry
// with the keys given exists.
void LowerLayerWithOspfv3Keys(Key process, Key area, Key name) {
    using ipapp_generator::Element;
    const std::string keys = Element("ospfv3-pm-proc-id", process.value) +
                             Element("ospfv3-pm-area-id", area.value) +
                             Element("ospfv3-pm-if-name", name.value);
    DatastoreCall(Model("string", process.type, area.type, name.type), L3Vlan(100),
                  L3Vlan(200, keys))
        .RunOnLowerLayer(validate_lower_layer_cross_prot, "5");
}

// The function name a handler's assertions report: its signature.
std::string Handler(const std::string& name) {
    return "int32_t " + name +
           "(int32_t, confd_trans_ctx*, confd_hkeypath_t*, confd_value_t*, "
           "ip_application::config_valid::Config&)";
}

TEST(AssertionsDeathTest, NameTheExpressionSourceAndFunction) {
    const std::string lower_layer_rule =
        "int32_t validate_lower_layer_cross_ospfv3(int32_t, confd_trans_ctx*, confd_hkeypath_t*, "
        "confd_value_t*)";
    const std::string l3_5 = ipapp_generator::Interfaces(ipapp_generator::L3(
        "5", ipapp_generator::Vlan(100) +
                 ipapp_generator::IPv6({}, ipapp_generator::Element("max-interval", "6"))));
    const auto vrf_change = [](bool leaf_is_tag) {
        return leaf_is_tag ? Keypath(5, {{0, Tag(ipapp_vrf)}, {1, U32(5)}})
                           : Keypath(5, {{0, Buf("vrf")}});
    };
    struct DeathCase {
        const char* source;
        std::string function;
        const char* expression;
        std::function<void()> statement;
    };
    const DeathCase cases[] = {
        {"src/lib/config", "get_intf_name_from_route",
         "(&cursor.keys[kNetworkPrefixLenId])->type == C_INT32",
         [] { RouteInterfaceName(U32(8), U32(1)); }},
        {"src/lib/config", "get_intf_name_from_route",
         "(&cursor.keys[kFteIndex])->type == C_UINT32", [] { RouteInterfaceName(I32(8), I32(1)); }},
        {"src/lib/config", "get_intf_lim_id", "(&confd_if_index)->type == C_INT32",
         [&] {
             DatastoreCall call("", l3_5);
             call.config().l3_config.get_intf_lim_id(
                 "/config/interface/l3{5}/ipv6/nd/ra/max-interval");
         }},
        {"src/lib/config", "get_vrf_name", "(&l3_vrf_name)->type == C_BUF",
         [&] {
             DatastoreCall call("", l3_5);
             call.config().l3_config.get_vrf_name("/config/interface/l3{5}/lower-layer-if/vlan");
         }},
        {"src/lib/validate_intf_name", Handler("validate_intf_l3_name"),
         "(&cursor.keys[0])->type == C_BUF",
         [] {
             DatastoreCall(Model("uint32", "uint32", "t:ipv4-address", "string"), "", L3Vlan(1))
                 .Run(validate_intf_l3_name, plugin_test::ListKeypath(ipapp_l3));
         }},
        {"src/lib/validate_intf_vrf", Handler("validate_intf_vrf"),
         "(&keypath->v[4][0])->type == C_XMLTAG",
         [] {
             DatastoreCall("", "").Run(validate_intf_vrf, Keypath(6, {{4, Buf("5")}}));
         }},
        {"src/lib/validate_intf_vrf", "Ospfv3Conflict", "(&kp->v[0][0])->type == C_XMLTAG",
         [&] { Iterate<ValidateIntfL3Vrf>(vrf_change(false)); }},
        {"src/lib/validate_intf_vrf", "ValidateIntfVrfOspfv3::IterValidate",
         "(&kp->v[0][0])->type == C_XMLTAG",
         [&] { Iterate<ValidateIntfVrfOspfv3>(vrf_change(false)); }},
        {"src/lib/validate_intf_vrf", "Ospfv3Conflict", "(&kp->v[1][0])->type == C_BUF",
         [&] { Iterate<ValidateIntfL3Vrf>(vrf_change(true)); }},
        {"src/lib/validate_ip_addr_cross_ospf", lower_layer_rule,
         "(&mc_intf.keys[1])->type == C_IPV4",
         [] {
             LowerLayerWithOspfv3Keys({"uint32", "2"}, {"string", "a"}, {"string", "5"});
         }},
        {"src/lib/validate_ip_addr_cross_ospf", lower_layer_rule,
         "(&mc_intf.keys[0])->type == C_UINT32",
         [] {
             LowerLayerWithOspfv3Keys({"string", "p"}, {"t:ipv4-address", "0.0.0.1"},
                                      {"string", "5"});
         }},
        {"src/lib/validate_ip_addr_cross_ospf", lower_layer_rule,
         "(&mc_intf.keys[2])->type == C_BUF",
         [] {
             LowerLayerWithOspfv3Keys({"uint32", "2"}, {"t:ipv4-address", "0.0.0.1"},
                                      {"uint32", "5"});
         }},
        {"src/lib/validate_nd_ra", Handler("validate_ipv6_nd_ra_interval"),
         "(&keypath->v[4][0])->type == C_XMLTAG",
         [] {
             DatastoreCall("", "").Run(validate_ipv6_nd_ra_interval,
                                       Keypath(5, {{3, Buf("5")}, {4, U32(5)}}));
         }},
    };
    for (const DeathCase& c : cases) {
        EXPECT_DEATH(
            c.statement(),
            AllOf(ContainsRegex(c.source + std::string(":[0-9]+: ")), HasSubstr(c.function),
                  HasSubstr(": Assertion `" + std::string(c.expression) + "' failed.")))
            << c.expression;
    }
}

}  // namespace
