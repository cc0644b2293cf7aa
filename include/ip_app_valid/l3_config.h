// Reads the layer-3 interfaces ("l3" list) of the candidate configuration.
#ifndef IP_APP_VALID_L3_CONFIG_H
#define IP_APP_VALID_L3_CONFIG_H

#include "ip_app_valid/interface_config.h"

namespace ip_application {
namespace config_valid {

class L3Config : public InterfaceConfig {
  public:
    L3Config() : InterfaceConfig(InterfaceType::L3) {}
    void ReadConfig(ConfigAddrFamily family) override;
};

}  // namespace config_valid
}  // namespace ip_application

#endif  // IP_APP_VALID_L3_CONFIG_H
