#include "ip_app_valid/l3_config.h"

namespace ip_application {
namespace config_valid {

void L3Config::ReadConfig(ConfigAddrFamily family) {
    ReadInterfaces(
        "/config/interface/ipapp:l3", "l3 ", family,
        [this](const std::string& entry, Interface& intf) {
            // An unspecified primary address is left out without a report.
            const nettypes::IPv4AddrMask primary = get_ipv4_addr_mask(entry + "}/ipv4/address/ip");
            if (!primary.IsUnspecified()) {
                intf.ipv4_addrs.push_back(primary);
            }
            intf.ipv4_addrs.splice(intf.ipv4_addrs.end(), get_intf_ipv4_addr_mask_list(
                                                              entry + "}/ipv4/address/secondary"));
        },
        [this](const std::string& entry, Interface& intf) {
            intf.lim_id = get_intf_lim_id(entry + "}/lower-layer-if/vlan");
        });
}

}  // namespace config_valid
}  // namespace ip_application
