#include "ip_app_valid/validate_logger.h"

#include <velmw_log.h>

#include <cstdarg>

namespace ip_application {
namespace config_valid {

void ValidateLogger::Log(const char* format, ...) {
    // Fetched on the first call only; the initialisation of a function-local
    // static is thread-safe and is tried again on the next call if the fetch
    // throws.
    static const velmw_log_handle_t handle = get_config_vald_log_handle();
    if (handle == nullptr) {
        return;
    }
    va_list args;
    va_start(args, format);
    velmw_vlog_debug(handle, format, args);
    va_end(args);
}

}  // namespace config_valid
}  // namespace ip_application
