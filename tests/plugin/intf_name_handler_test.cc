// The l3 interface count comes before the names, and a count that cannot be
// made passes on to the names. The length and character rules are proven end
// to end (tests/scenarios).
#include "ip_app_valid/confd_api.h"

#include <confd_fault_injection.h>
#include <gtest/gtest.h>
#include <ipapp.h>

#include <string>

#include "config_xml.h"
#include "datastore_call.h"
#include "ip_app_valid.h"

namespace {

TEST(ValidateIntfL3Name, CountComesFirstAndAFailedCountPassesOnToTheNames) {
    std::string interfaces;
    for (int i = 0; i < 256; ++i) {
        interfaces += ipapp_generator::L3("if" + std::to_string(i));
    }
    interfaces += ipapp_generator::L3("bad.name");
    for (const bool count_fails : {false, true}) {
        plugin_test::DatastoreCall call("", ipapp_generator::Interfaces(interfaces));
        if (count_fails) {
            confdstore::fault_injection::fail("maapi_num_instances", "/config/interface/l3",
                                              CONFD_ERR_BADPATH);
        }
        EXPECT_EQ(call.Run(validate_intf_l3_name, plugin_test::ListKeypath(ipapp_l3)), -1);
        EXPECT_EQ(call.error_text(),
                  count_fails ? "L3 interface name bad.name contains invalid characters (allowed "
                                "characters: 0-9, a-z, A-Z, _, -)"
                              : "too many 'interface l3', 257 configured, at most 256 must be "
                                "configured");
        EXPECT_EQ(confdstore::fault_injection::hits(), count_fails ? 1 : 0);
    }
}

}  // namespace
