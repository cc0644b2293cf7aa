// Reads the management interfaces ("mgmt" list) of the candidate configuration.
#ifndef IP_APP_VALID_MGMT_CONFIG_H
#define IP_APP_VALID_MGMT_CONFIG_H

#include "ip_app_valid/interface_config.h"

namespace ip_application {
namespace config_valid {

class MgmtConfig : public InterfaceConfig {
  public:
    MgmtConfig() : InterfaceConfig(InterfaceType::Mgmt) {}
    void ReadConfig(ConfigAddrFamily family) override;
};

}  // namespace config_valid
}  // namespace ip_application

#endif  // IP_APP_VALID_MGMT_CONFIG_H
