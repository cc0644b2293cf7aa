// The lower-layer rule: the committed VLAN of an l3 interface (read through
// CDB) cannot change while an OSPFv3 entry of the candidate carries the
// interface index of that VLAN's interface.
#include "ip_app_valid/confd_api.h"

#include <confd_fault_injection.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "configuration_xml.h"
#include "datastore_call.h"
#include "ip_app_valid.h"
#include "ospfv3_xml.h"

namespace {

namespace fault_injection = confdstore::fault_injection;
using plugin_test::DatastoreCall;
using plugin_test::L3;
using plugin_test::Ospfv3Interface;
using plugin_test::Vlan;

// The interface entries and the internal entries of a configuration.
std::string Configuration(const std::string& interfaces, const std::string& internal = "") {
    return plugin_test::Interfaces(interfaces) + plugin_test::Internal(internal);
}

// The interface index of the l3 interface over VLAN 100, 200.
constexpr uint32_t kVlan100IfIndex = 1000100;
constexpr uint32_t kVlan200IfIndex = 1000200;

const std::string kVlan100Refused =
    "vlan 100 cannot be changed, it is assigned to router ospfv3 2 area 1 (0.0.0.1)";

// l3 5 over the VLAN (none: no lower layer), with the internal entries.
std::string Interface5(std::optional<int32_t> vlan, const std::string& internal = "") {
    return Configuration(L3("5", vlan ? Vlan(*vlan) : ""), internal);
}

std::string Ospfv3Over(std::optional<uint32_t> ifindex) {
    return Ospfv3Interface(2, "0.0.0.1", "l3-5", ifindex);
}

struct Case {
    const char* what;
    std::string running;
    std::string candidate;
    int32_t result;
    std::string error;
};

template <size_t N>
void ExpectVerdicts(const Case (&cases)[N]) {
    for (const Case& c : cases) {
        DatastoreCall call(c.running, c.candidate);
        EXPECT_EQ(call.RunOnLowerLayer(validate_lower_layer_cross_prot, "5"), c.result) << c.what;
        EXPECT_EQ(call.error_text(), c.error) << c.what;
    }
}

TEST(ValidateLowerLayerCrossProt, CommittedVlanOfAnOspfv3InterfaceStays) {
    const std::string ospf = Ospfv3Over(kVlan100IfIndex);
    const Case cases[] = {
        {"vlan changed", Interface5(100), Interface5(200, ospf), -1, kVlan100Refused},
        {"vlan deleted", Interface5(100), Interface5(std::nullopt, ospf), -1, kVlan100Refused},
        {"new interface", "", Interface5(200, ospf), 0, ""},
        {"no committed vlan", Interface5(std::nullopt), Interface5(200, ospf), 0, ""},
        {"vlan unchanged", Interface5(100, ospf), Interface5(100, ospf), 0, ""},
        {"no ospfv3 entry", Interface5(100), Interface5(200), 0, ""},
        {"ospfv3 on another vlan", Interface5(100),
         Interface5(200, Ospfv3Over(kVlan100IfIndex + 1)), 0, ""},
        {"ospfv3 on the new vlan", Interface5(100), Interface5(200, Ospfv3Over(kVlan200IfIndex)), 0,
         ""},
        {"ospfv3 committed only", Interface5(100, ospf), Interface5(200), 0, ""},
        {"entry found by index, not by name", Interface5(100),
         Interface5(200, Ospfv3Interface(2, "0.0.0.1", "l3-9", kVlan100IfIndex)), -1,
         kVlan100Refused},
        {"area as number and as address", Interface5(100),
         Interface5(200, Ospfv3Interface(2, "10.0.0.1", "l3-5", kVlan100IfIndex)), -1,
         "vlan 100 cannot be changed, it is assigned to router ospfv3 2 area 167772161 (10.0.0.1)"},
        {"first matching entry in key order", Interface5(100),
         Interface5(200, Ospfv3Interface(3, "0.0.0.0", "l3-5", kVlan100IfIndex) +
                             Ospfv3Interface(1, "0.0.0.2", "l3-5", 7) +
                             Ospfv3Interface(1, "0.0.0.3", "l3-5", kVlan100IfIndex)),
         -1, "vlan 100 cannot be changed, it is assigned to router ospfv3 1 area 3 (0.0.0.3)"},
    };
    ExpectVerdicts(cases);
}

TEST(ValidateLowerLayerCrossProt, UnreadableInterfaceIndexComparesAsZero) {
    // VLAN 5000 has no interface: its index is 0 like that of an entry whose
    // index cannot be read.
    const Case cases[] = {
        {"no index, vlan without interface", Interface5(5000),
         Interface5(10, Ospfv3Over(std::nullopt)), -1,
         "vlan 5000 cannot be changed, it is assigned to router ospfv3 2 area 1 (0.0.0.1)"},
        {"no index, vlan with interface", Interface5(100), Interface5(10, Ospfv3Over(std::nullopt)),
         0, ""},
    };
    ExpectVerdicts(cases);

    struct ReadFault {
        int32_t committed_vlan;
        int32_t result;
    };
    for (const ReadFault& c : {ReadFault{5000, -1}, ReadFault{100, 0}}) {
        fault_injection::reset();
        fault_injection::fail("maapi_get_u_int32_elem",
                              "/internal/ospfv3-interface-l3{2 0.0.0.1 l3-5}/ospfv3-pm-if-index",
                              CONFD_ERR_NOEXISTS);
        DatastoreCall call(Interface5(c.committed_vlan),
                           Interface5(10, Ospfv3Over(kVlan100IfIndex)));
        EXPECT_EQ(call.RunOnLowerLayer(validate_lower_layer_cross_prot, "5"), c.result)
            << c.committed_vlan;
        EXPECT_EQ(fault_injection::hits(), 1) << c.committed_vlan;
    }
    fault_injection::reset();
}

TEST(ValidateLowerLayerCrossProt, FailedCommittedReadPasses) {
    fault_injection::reset();
    fault_injection::fail("cdb_get_int32", "/config/interface/l3{5}/lower-layer-if/vlan",
                          CONFD_ERR_NOEXISTS);
    DatastoreCall call(Interface5(100), Interface5(200, Ospfv3Over(kVlan100IfIndex)));
    EXPECT_EQ(call.RunOnLowerLayer(validate_lower_layer_cross_prot, "5"), 0);
    EXPECT_EQ(fault_injection::hits(), 1);
    fault_injection::reset();
}

constexpr const char* kRuleFunction =
    "int32_t validate_lower_layer_cross_ospfv3\\(int32_t, confd_trans_ctx\\*, "
    "confd_hkeypath_t\\*, confd_value_t\\*\\)";

std::string AssertionMessage(const std::string& expression) {
    return std::string("src/lib/validate_ip_addr_cross_ospf:[0-9]+: ") + kRuleFunction +
           ": Assertion `" + expression + "' failed\\.";
}

TEST(ValidateLowerLayerCrossProtDeathTest, InterfaceKeyMustBeAString) {
    DatastoreCall call(Interface5(100), Interface5(200, Ospfv3Over(kVlan100IfIndex)));
    confd_hkeypath_t keypath = plugin_test::ListKeypath(0);
    keypath.len = 5;
    CONFD_SET_UINT32(&keypath.v[1][0], 5);
    EXPECT_DEATH(call.Run(validate_lower_layer_cross_prot, keypath),
                 AssertionMessage("\\(&keypath->v\\[1\\]\\[0\\]\\)->type == C_BUF"));
}

// A model like the project's whose OSPFv3 list keys have the given types.
std::string Ospfv3KeysModule(const std::string& process, const std::string& area,
                             const std::string& name) {
    return R"(module lower-layer-keys {
  yang-version 1.1;
  namespace "urn:test:lower-layer-keys";
  prefix llk;
  import ipapp-types { prefix ipapp-t; }
  container config {
    container interface {
      list l3 {
        key "name";
        leaf name { type string; }
        container lower-layer-if { leaf vlan { type int32; } }
      }
    }
  }
  container internal {
    list ospfv3-interface-l3 {
      key "ospfv3-pm-proc-id ospfv3-pm-area-id ospfv3-pm-if-name";
      leaf ospfv3-pm-proc-id { type )" +
           process + R"(; }
      leaf ospfv3-pm-area-id { type )" +
           area + R"(; }
      leaf ospfv3-pm-if-name { type )" +
           name + R"(; }
      leaf ospfv3-pm-if-index { type uint32; }
    }
  }
})";
}

std::string KeysModuleConfig(int32_t vlan, const std::string& internal = "") {
    const std::string ns = " xmlns=\"urn:test:lower-layer-keys\"";
    std::string xml = "<config" + ns + "><interface><l3><name>5</name><lower-layer-if><vlan>" +
                      std::to_string(vlan) + "</vlan></lower-layer-if></l3></interface></config>";
    if (!internal.empty()) {
        xml += "<internal" + ns + ">" + internal + "</internal>";
    }
    return xml;
}

TEST(ValidateLowerLayerCrossProtDeathTest, Ospfv3KeysHaveTheirTypes) {
    struct DeathCase {
        const char* process_type;
        const char* area_type;
        const char* name_type;
        const char* expression;
    };
    const DeathCase cases[] = {
        {"uint32", "string", "string", "\\(&mc_intf.keys\\[1\\]\\)->type == C_IPV4"},
        {"string", "ipapp-t:ipv4-address", "string",
         "\\(&mc_intf.keys\\[0\\]\\)->type == C_UINT32"},
        {"uint32", "ipapp-t:ipv4-address", "uint32", "\\(&mc_intf.keys\\[2\\]\\)->type == C_BUF"},
    };
    for (const DeathCase& c : cases) {
        const confdstore::Schema schema = plugin_test::SchemaOf(
            "lower-layer-keys", Ospfv3KeysModule(c.process_type, c.area_type, c.name_type));
        DatastoreCall call(
            schema, KeysModuleConfig(100),
            KeysModuleConfig(200, Ospfv3Interface(2, "0.0.0.1", "5", kVlan100IfIndex)));
        EXPECT_DEATH(call.RunOnLowerLayer(validate_lower_layer_cross_prot, "5"),
                     AssertionMessage(c.expression))
            << c.expression;
    }
}

}  // namespace
