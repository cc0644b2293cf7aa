#include "ip_app_valid/lo_config.h"

namespace ip_application {
namespace config_valid {

void LoConfig::ReadConfig(ConfigAddrFamily family) {
    ReadInterfaces("/config/interface/ipapp:loopback", "loopback ", family,
                   [this](const std::string& entry, Interface& intf) {
                       intf.ipv4_addrs = get_intf_ipv4_addr_mask_list(entry + "}/ipv4/address");
                   });
}

}  // namespace config_valid
}  // namespace ip_application
