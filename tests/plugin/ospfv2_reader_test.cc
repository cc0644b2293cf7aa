// The OSPFv2 reader against a real datastore: one record per interface,
// process and VRF, the lookups that may fail, and malformed keys.
#include "ip_app_valid/confd_api.h"

#include <confd_fault_injection.h>
#include <gtest/gtest.h>
#include <boost/system/system_error.hpp>

#include <stdexcept>
#include <string>
#include <vector>

#include "candidate.h"
#include "configuration_xml.h"
#include "host_log.h"
#include "snapshot_text.h"

namespace {

using ip_application::config_valid::ConfigAddrFamily;
using ip_application::config_valid::Ospfv2Config;
using plugin_test::Candidate;
using plugin_test::Internal;
using plugin_test::OspfInterface;
using plugin_test::OspfProcess;
using plugin_test::Records;

TEST(Ospfv2Reader, MergesAssignmentsByInterfaceProcessAndVrf) {
    struct Case {
        const char* what;
        std::string entries;
        std::vector<std::string> records;
    };
    const Case cases[] = {
        {"two addresses of one interface and process",
         OspfInterface("7", "0.0.0.1", "l3-5", "10.0.0.1", 24) +
             OspfInterface("7", "0.0.0.1", "l3-5", "10.0.1.1", 16) + OspfProcess(7, 2, "red"),
         {"l3 5|2|red|0.0.0.1|10.0.0.1/24,10.0.1.1/16"}},
        {"one interface under two processes",
         OspfInterface("7", "0.0.0.1", "l3-5", "10.0.0.1", 24) +
             OspfInterface("8", "0.0.0.1", "l3-5", "10.0.1.1", 24) + OspfProcess(7, 2, "red") +
             OspfProcess(8, 3, "red"),
         {"l3 5|2|red|0.0.0.1|10.0.0.1/24", "l3 5|3|red|0.0.0.1|10.0.1.1/24"}},
        {"two compound identifiers of one process and VRF make one record",
         OspfInterface("7", "0.0.0.1", "l3-5", "10.0.0.1", 24) +
             OspfInterface("8", "0.0.0.1", "l3-5", "10.0.1.1", 24) + OspfProcess(7, 2, "red") +
             OspfProcess(8, 2, "red"),
         {"l3 5|2|red|0.0.0.1|10.0.0.1/24,10.0.1.1/24"}},
        {"entries differing only in area: the first area stays",
         OspfInterface("7", "0.0.0.2", "l3-5", "10.0.0.1", 24) +
             OspfInterface("7", "0.0.0.1", "l3-5", "10.0.1.1", 24) + OspfProcess(7, 2, "red"),
         {"l3 5|2|red|0.0.0.1|10.0.1.1/24,10.0.0.1/24"}},
        {"the first dash becomes a blank; keys without one are skipped",
         OspfInterface("7", "0.0.0.0", "loopback-1", "1.1.1.1", 32) +
             OspfInterface("7", "0.0.0.0", "l3-a-b", "10.0.0.1", 24) +
             OspfInterface("7", "0.0.0.0", "l3_5", "10.0.2.1", 24) + OspfProcess(7, 2, "red"),
         {"l3 a-b|2|red|0.0.0.0|10.0.0.1/24", "loopback 1|2|red|0.0.0.0|1.1.1.1/32"}},
    };
    for (const Case& c : cases) {
        plugin_test::HostLog log;
        Candidate candidate(Internal(c.entries));
        Ospfv2Config& ospf = candidate.config().ospfv2_config;
        ospf.ReadConfigIfNeeded(ConfigAddrFamily::IPv4);
        EXPECT_EQ(Records(ospf.interfaces()), c.records) << c.what;
        EXPECT_TRUE(log.DebugLines().empty()) << c.what;
    }
}

TEST(Ospfv2Reader, FailedLookupsAreLoggedWithTheCompoundIdentifier) {
    plugin_test::HostLog log;
    Candidate candidate(Internal(OspfInterface("7", "0.0.0.1", "l3-5", "10.0.0.1", 24) +
                                 OspfInterface("9", "0.0.0.1", "l3-6", "10.0.0.2", 24) +
                                 OspfProcess(7, 2, "red")));
    confdstore::fault_injection::fail(
        "maapi_get_u_int8_elem",
        "/internal/ospf-interface-l3{7 0.0.0.1 l3-5 10.0.0.1}/ospf-pm-ip-netmask",
        CONFD_ERR_NOEXISTS);
    Ospfv2Config& ospf = candidate.config().ospfv2_config;
    ospf.ReadConfigIfNeeded(ConfigAddrFamily::IPv4);
    // Compound 9 has no process entry: process 0 and no VRF name.
    EXPECT_EQ(
        Records(ospf.interfaces()),
        (std::vector<std::string>{"l3 5|2|red|0.0.0.1|10.0.0.1/0", "l3 6|0||0.0.0.1|10.0.0.2/24"}));
    EXPECT_EQ(log.DebugLines(), (std::vector<std::string>{
                                    "Failed to get IPv4 netmask from process ID 7!",
                                    "Failed to get process ID from compound ID 9!",
                                    "Failed to get VRF name from compound ID 9!",
                                }));
}

TEST(Ospfv2Reader, IPv6ReadTouchesNothing) {
    Candidate candidate(Internal(OspfInterface("7", "0.0.0.1", "l3-5", "10.0.0.1", 24)));
    for (const char* call : {"maapi_exists", "maapi_init_cursor", "maapi_get_u_int8_elem"}) {
        confdstore::fault_injection::fail(call, "", CONFD_ERR_BADSTATE);
    }
    Ospfv2Config& ospf = candidate.config().ospfv2_config;
    ospf.ReadConfigIfNeeded(ConfigAddrFamily::IPv6);
    EXPECT_EQ(confdstore::fault_injection::hits(), 0);
    EXPECT_TRUE(ospf.interfaces().empty());
    EXPECT_TRUE(ospf.ipv6_read());
}

TEST(Ospfv2Reader, MalformedKeysEndTheReadWithTheFamilyUnread) {
    // Keys are delivered in text order: the good entry "1" comes first.
    const std::string good = OspfInterface("1", "0.0.0.1", "l3-1", "10.0.0.1", 24);
    struct Case {
        const char* what;
        std::string bad_entry;
        void (*expect_throw)(Ospfv2Config&);
    };
    const Case cases[] = {
        {"compound identifier without digits",
         OspfInterface("x7", "0.0.0.1", "l3-5", "10.0.0.1", 24),
         [](Ospfv2Config& ospf) {
             EXPECT_THROW(ospf.ReadConfigIfNeeded(ConfigAddrFamily::IPv4), std::invalid_argument);
         }},
        {"compound identifier out of range",
         OspfInterface("99999999999999999999999", "0.0.0.1", "l3-5", "10.0.0.1", 24),
         [](Ospfv2Config& ospf) {
             EXPECT_THROW(ospf.ReadConfigIfNeeded(ConfigAddrFamily::IPv4), std::out_of_range);
         }},
        {"area that is not an address", OspfInterface("7", "0.0.1", "l3-5", "10.0.0.1", 24),
         [](Ospfv2Config& ospf) {
             EXPECT_THROW(ospf.ReadConfigIfNeeded(ConfigAddrFamily::IPv4),
                          boost::system::system_error);
         }},
        {"interface address that is not an address",
         OspfInterface("7", "0.0.0.1", "l3-5", "10.0.0.256", 24),
         [](Ospfv2Config& ospf) {
             EXPECT_THROW(ospf.ReadConfigIfNeeded(ConfigAddrFamily::IPv4),
                          boost::system::system_error);
         }},
    };
    for (const Case& c : cases) {
        plugin_test::HostLog log;
        Candidate candidate(Internal(good + c.bad_entry));
        Ospfv2Config& ospf = candidate.config().ospfv2_config;
        c.expect_throw(ospf);
        EXPECT_FALSE(ospf.ipv4_read()) << c.what;
        EXPECT_EQ(Records(ospf.interfaces()),
                  (std::vector<std::string>{"l3 1|0||0.0.0.1|10.0.0.1/24"}))
            << c.what;
    }
}

TEST(Ospfv2Reader, MalformedKeyOfAnEntryWithoutDashIsNeverLookedAt) {
    Candidate candidate(Internal(OspfInterface("x", "bad", "l35", "bad", 24)));
    Ospfv2Config& ospf = candidate.config().ospfv2_config;
    ospf.ReadConfigIfNeeded(ConfigAddrFamily::IPv4);
    EXPECT_TRUE(ospf.ipv4_read());
    EXPECT_TRUE(ospf.interfaces().empty());
}

}  // namespace
