// The l3 interface count and name rules, read from candidate configurations
// of the datastore.
#include "ip_app_valid/confd_api.h"

#include <confd_fault_injection.h>
#include <gtest/gtest.h>
#include <ipapp.h>

#include <string>
#include <vector>

#include "configuration_xml.h"
#include "datastore_call.h"
#include "ip_app_valid.h"

namespace {

namespace fault_injection = confdstore::fault_injection;
using plugin_test::DatastoreCall;
using plugin_test::Interfaces;
using plugin_test::L3;
using plugin_test::ListKeypath;

const std::string kInvalidCharacters =
    " contains invalid characters (allowed characters: 0-9, a-z, A-Z, _, -)";

// "if0" ... "if<count-1>" and then the further names.
std::vector<std::string> NumberedNames(int count, std::vector<std::string> further = {}) {
    std::vector<std::string> names;
    for (int i = 0; i < count; ++i) {
        names.push_back("if" + std::to_string(i));
    }
    names.insert(names.end(), further.begin(), further.end());
    return names;
}

std::string CandidateWith(const std::vector<std::string>& names) {
    std::string interfaces;
    for (const std::string& name : names) {
        interfaces += L3(name);
    }
    return Interfaces(interfaces);
}

// l3 interfaces by name and the handler's verdict on them.
struct Case {
    const char* what;
    std::vector<std::string> names;
    int32_t result;
    std::string error;
};

void ExpectVerdict(const Case& c) {
    DatastoreCall call("", CandidateWith(c.names));
    EXPECT_EQ(call.Run(validate_intf_l3_name, ListKeypath(ipapp_l3)), c.result) << c.what;
    EXPECT_EQ(call.error_text(), c.error) << c.what;
}

TEST(ValidateIntfL3Name, CountAndNameRules) {
    const std::string name60(60, 'a');
    const std::string name61(61, 'b');
    const Case cases[] = {
        {"no l3 interface", {}, 0, ""},
        {"60 characters", {name60}, 0, ""},
        {"61 characters",
         {"ok", name61},
         -1,
         "L3 interface name " + name61 + " is too long (maximum length: 60 characters)"},
        {"full stop", {"eth.1"}, -1, "L3 interface name eth.1" + kInvalidCharacters},
        {"blank", {"eth 1"}, -1, "L3 interface name eth 1" + kInvalidCharacters},
        {"every allowed class", {"Eth_1-a", "0123456789-_azAZ"}, 0, ""},
        {"empty name", {""}, -1, "L3 interface name  is too short (minimum length: 1 character)"},
        {"length before characters",
         {name60 + "."},
         -1,
         "L3 interface name " + name60 + ". is too long (maximum length: 60 characters)"},
        {"first offender in key order",
         {"b.2", "a.1"},
         -1,
         "L3 interface name a.1" + kInvalidCharacters},
        {"256 interfaces", NumberedNames(256), 0, ""},
        {"257 interfaces", NumberedNames(257), -1,
         "too many 'interface l3', 257 configured, at most 256 must be configured"},
        {"count before names", NumberedNames(256, {"bad.name"}), -1,
         "too many 'interface l3', 257 configured, at most 256 must be configured"},
    };
    for (const Case& c : cases) {
        ExpectVerdict(c);
    }
}

TEST(ValidateIntfL3Name, FailedCountPassesOnToTheNames) {
    const Case cases[] = {
        {"good names", NumberedNames(257), 0, ""},
        {"a bad name", NumberedNames(257, {"bad.name"}), -1,
         "L3 interface name bad.name" + kInvalidCharacters},
    };
    for (const Case& c : cases) {
        fault_injection::reset();
        fault_injection::fail("maapi_num_instances", "/config/interface/l3", CONFD_ERR_BADPATH);
        ExpectVerdict(c);
        EXPECT_EQ(fault_injection::hits(), 1) << c.what;
    }
    fault_injection::reset();
}

// A model whose l3 list has a numeric key, which the rule does not expect.
constexpr const char* kNumericKeyModule = R"(module ipapp {
  yang-version 1.1;
  namespace "urn:test:numeric-l3-key";
  prefix ipapp;
  container config {
    container interface {
      list l3 { key "name"; leaf name { type uint32; } }
    }
  }
})";

TEST(ValidateIntfL3NameDeathTest, KeyMustBeAString) {
    const confdstore::Schema schema = plugin_test::SchemaOf("ipapp", kNumericKeyModule);
    DatastoreCall call(schema, "",
                       "<config xmlns=\"urn:test:numeric-l3-key\"><interface><l3><name>5</name>"
                       "</l3></interface></config>");
    EXPECT_DEATH(call.Run(validate_intf_l3_name, ListKeypath(ipapp_l3)),
                 "src/lib/validate_intf_name:[0-9]+: int32_t validate_intf_l3_name\\(int32_t, "
                 "confd_trans_ctx\\*, confd_hkeypath_t\\*, confd_value_t\\*, "
                 "ip_application::config_valid::Config&\\): Assertion "
                 "`\\(&cursor.keys\\[0\\]\\)->type == C_BUF' failed\\.");
}

}  // namespace
