#include "ip_app_valid/validate_config.h"

namespace ip_application {
namespace config_valid {

void ValidateConfig::SetError(std::string text) {
    error_.swap(text);
}

bool ValidateConfig::Fails(std::optional<std::string> failure) {
    if (!failure) {
        return false;
    }
    SetError(std::move(*failure));
    return true;
}

}  // namespace config_valid
}  // namespace ip_application
