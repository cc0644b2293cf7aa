// The lower-layer rule on what a configuration file cannot produce: failed
// reads. The rule's text, the OSPFv3 entries' order and matching, a deleted
// VLAN, a new interface and an entry without interface index are proven end
// to end (tests/scenarios).
#include "ip_app_valid/confd_api.h"

#include <confd_fault_injection.h>
#include <gtest/gtest.h>

#include <string>

#include "config_xml.h"
#include "datastore_call.h"
#include "ip_app_valid.h"

namespace {

using ipapp_generator::Ospfv3Interface;

// l3 5 over the VLAN, with the internal entries.
std::string Interface5(int32_t vlan, const std::string& internal = "") {
    return ipapp_generator::Interfaces(ipapp_generator::L3("5", ipapp_generator::Vlan(vlan))) +
           ipapp_generator::Internal(internal);
}

TEST(ValidateLowerLayerCrossProt, FailedReadsLetTheChangePass) {
    struct Case {
        const char* what;
        std::string ospfv3;
        const char* fail_call;
        const char* fail_path;
    };
    const Case cases[] = {
        {"an index that cannot be read compares as 0, not as VLAN 100's (1000100)",
         Ospfv3Interface(3, "0.0.0.1", "l3-5", 1000100), "maapi_get_u_int32_elem",
         "/internal/ospfv3-interface-l3{3 0.0.0.1 l3-5}/ospfv3-pm-if-index"},
        {"a committed VLAN that cannot be read passes, even by an entry of index 0",
         Ospfv3Interface(3, "0.0.0.1", "l3-5", std::nullopt), "cdb_get_int32",
         "/config/interface/l3{5}/lower-layer-if/vlan"},
    };
    for (const Case& c : cases) {
        plugin_test::DatastoreCall call(Interface5(100), Interface5(200, c.ospfv3));
        confdstore::fault_injection::fail(c.fail_call, c.fail_path, CONFD_ERR_NOEXISTS);
        EXPECT_EQ(call.RunOnLowerLayer(validate_lower_layer_cross_prot, "5"), 0) << c.what;
        EXPECT_EQ(call.error_text(), "") << c.what;
        EXPECT_EQ(confdstore::fault_injection::hits(), 1) << c.what;
    }
}

}  // namespace
