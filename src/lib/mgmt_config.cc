#include "ip_app_valid/mgmt_config.h"

#include "fault_report.h"

namespace ip_application {
namespace config_valid {

void MgmtConfig::ReadConfig(ConfigAddrFamily family) {
    const SourceSite site = IPAPP_SOURCE_SITE;
    ReadInterfaces("/config/interface/ipapp:mgmt", "mgmt ", family,
                   [this, &site](const std::string& entry, Interface& intf) {
                       const nettypes::IPv4AddrMask addr =
                           get_ipv4_addr_mask(entry + "}/ipv4/address/ip");
                       if (addr.IsUnspecified()) {
                           // The report names the address read, not the key.
                           ReportFault(site, "Unspecified IPv4 address for key '%s'",
                                       addr.to_string().c_str());
                           return;
                       }
                       intf.ipv4_addrs.push_back(addr);
                   });
}

}  // namespace config_valid
}  // namespace ip_application
