#include "ip_app_valid/interface.h"

namespace ip_application {
namespace config_valid {

bool IsZeroLimId(const limid_t& id) {
    return id.type == 0 && id.slot == 0 && id.index == 0;
}

}  // namespace config_valid
}  // namespace ip_application
