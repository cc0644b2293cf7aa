// One configured interface as the snapshot holds it.
#ifndef IP_APP_VALID_INTERFACE_H
#define IP_APP_VALID_INTERFACE_H

#include <limid.h>
#include <nettypes/ipv4_addr_mask.h>
#include <nettypes/ipv6_addr_mask.h>

#include <list>
#include <string>

namespace ip_application {
namespace config_valid {

struct Interface {
    // The kind word, one blank and the list key: "l3 5", "loopback 1", "mgmt 0".
    std::string name;
    std::list<nettypes::IPv4AddrMask> ipv4_addrs;
    std::list<nettypes::IPv6AddrMask> ipv6_addrs;
    // "global" when the interface has no VRF leaf, "" when it could not be read.
    std::string vrf_name;
    // The lower layer (layer-3 interfaces only); all zero when there is none.
    limid_t lim_id{};
};

// True when all four bytes of the identifier are zero.
bool IsZeroLimId(const limid_t& id);

}  // namespace config_valid
}  // namespace ip_application

#endif  // IP_APP_VALID_INTERFACE_H
