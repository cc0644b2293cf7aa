/* Configurations of the project's model used by several tests. */
#ifndef CONFD_TESTS_PROJECT_DATA_H
#define CONFD_TESTS_PROJECT_DATA_H

#include <string>

#include "config_xml.h"

namespace confd_test {

// Interfaces l3 5 (full), 10 and 2 (in that order in the text), two static
// routes (the IPv6 one first), the internal tables with more_internal after
// their entries.
inline std::string Candidate(const std::string& more_internal = "") {
    using namespace ipapp_generator;
    const std::string l3_5 =
        L3("5", Vrf("red") + IPv4("10.1.2.3/24", {"10.1.3.1/24", "10.0.3.1/24"}) +
                    IPv6({"2001:DB8::1/64"},
                         Element("max-interval", "600") + Element("min-interval", "450")) +
                    Vlan(100));
    return Interfaces(l3_5 + L3("10") + L3("2")) +
           Routes({{"ipv6", "2001:db8::", 32, "2001:db8::2"},
                   {"ipv4", "10.0.0.0", 8, "10.1.2.254", "l3-5"}}) +
           Internal(OspfInterface("7", "0.0.0.1", "l3-5", "10.1.2.3", 24) +
                    OspfProcess(7, 2, "red") + Ospfv3Interface(2, "0.0.0.1", "l3-5", 1100) +
                    VrfConfig(3, "red") + more_internal);
}

}  // namespace confd_test

#endif
