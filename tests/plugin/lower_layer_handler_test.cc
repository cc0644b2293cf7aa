// The lower-layer rule on what a configuration file cannot produce (failed
// reads) and on the OSPFv3 entries' order and matching. The rule's text, a
// deleted VLAN, a new interface and an entry without interface index are
// proven end to end (tests/scenarios).
#include "ip_app_valid/confd_api.h"

#include <confd_fault_injection.h>
#include <gtest/gtest.h>

#include <string>

#include "config_xml.h"
#include "datastore_call.h"
#include "ip_app_valid.h"

namespace {

using ipapp_generator::Ospfv3Interface;

// The interface index of the l3 interface over VLAN 100.
constexpr uint32_t kVlan100IfIndex = 1000100;

// l3 5 over the VLAN, with the internal entries.
std::string Interface5(int32_t vlan, const std::string& internal = "") {
    return ipapp_generator::Interfaces(ipapp_generator::L3("5", ipapp_generator::Vlan(vlan))) +
           ipapp_generator::Internal(internal);
}

TEST(ValidateLowerLayerCrossProt, FirstEntryOfTheCommittedVlansIndexInKeyOrder) {
    struct Case {
        const char* what;
        std::string ospfv3;
        const char* fail_call;  // null: no read fails
        const char* fail_path;
        std::string error;
    };
    const Case cases[] = {
        {"found by index, not by name", Ospfv3Interface(3, "0.0.0.1", "l3-9", kVlan100IfIndex),
         nullptr, nullptr,
         "vlan 100 cannot be changed, it is assigned to router ospfv3 3 area 1 (0.0.0.1)"},
        {"first match in key order",
         Ospfv3Interface(3, "0.0.0.0", "l3-5", kVlan100IfIndex) +
             Ospfv3Interface(1, "0.0.0.2", "l3-5", 7) +
             Ospfv3Interface(1, "10.0.0.3", "l3-5", kVlan100IfIndex),
         nullptr, nullptr,
         "vlan 100 cannot be changed, it is assigned to router ospfv3 1 area 167772163 (10.0.0.3)"},
        {"an index that cannot be read compares as 0",
         Ospfv3Interface(3, "0.0.0.1", "l3-5", kVlan100IfIndex), "maapi_get_u_int32_elem",
         "/internal/ospfv3-interface-l3{3 0.0.0.1 l3-5}/ospfv3-pm-if-index", ""},
        {"a committed VLAN that cannot be read passes, even by an entry of index 0",
         Ospfv3Interface(3, "0.0.0.1", "l3-5", std::nullopt), "cdb_get_int32",
         "/config/interface/l3{5}/lower-layer-if/vlan", ""},
    };
    for (const Case& c : cases) {
        plugin_test::DatastoreCall call(Interface5(100), Interface5(200, c.ospfv3));
        if (c.fail_call != nullptr) {
            confdstore::fault_injection::fail(c.fail_call, c.fail_path, CONFD_ERR_NOEXISTS);
        }
        EXPECT_EQ(call.RunOnLowerLayer(validate_lower_layer_cross_prot, "5"),
                  c.error.empty() ? 0 : -1)
            << c.what;
        EXPECT_EQ(call.error_text(), c.error) << c.what;
        EXPECT_EQ(confdstore::fault_injection::hits(), c.fail_call != nullptr ? 1 : 0) << c.what;
    }
}

}  // namespace
