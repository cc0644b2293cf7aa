// The plug-in's debug log: lines go to the host's validation log handle,
// fetched once per process. Without a handle nothing is written.
#ifndef IP_APP_VALID_VALIDATE_LOGGER_H
#define IP_APP_VALID_VALIDATE_LOGGER_H

namespace ip_application {
namespace config_valid {

class ValidateLogger {
  public:
    static void Log(const char* format, ...) __attribute__((format(printf, 1, 2)));
};

}  // namespace config_valid
}  // namespace ip_application

#endif  // IP_APP_VALID_VALIDATE_LOGGER_H
