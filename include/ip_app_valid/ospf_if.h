// One interface's assignment to an OSPFv2 router process.
#ifndef IP_APP_VALID_OSPF_IF_H
#define IP_APP_VALID_OSPF_IF_H

#include <nettypes/ipv4_addr.h>
#include <nettypes/ipv4_addr_mask.h>

#include <cstdint>
#include <list>
#include <string>

namespace ip_application {
namespace config_valid {

class OspfIf {
  public:
    virtual ~OspfIf() = default;

    uint32_t process_id = 0;
    std::string vrf_name;
    nettypes::IPv4Addr area;
    // In the interface readers' form ("l3 5").
    std::string intf_name;
    std::list<nettypes::IPv4AddrMask> addrs;
};

}  // namespace config_valid
}  // namespace ip_application

#endif  // IP_APP_VALID_OSPF_IF_H
