// A ConfD value filled by a MAAPI read and released when it goes out of
// scope: reads of buffer types allocate, and every path out of a reader,
// exceptions included, must free them.
#ifndef IP_APP_VALID_READ_VALUE_H
#define IP_APP_VALID_READ_VALUE_H

#include "ip_app_valid/confd_api.h"

#include <cstring>
#include <string>

namespace ip_application {
namespace config_valid {

class ReadValue {
  public:
    ReadValue() { value_.type = C_NOEXISTS; }
    ~ReadValue() { confd_free_value(&value_); }
    ReadValue(const ReadValue&) = delete;
    ReadValue& operator=(const ReadValue&) = delete;

    confd_value_t& value() { return value_; }

  private:
    confd_value_t value_;
};

// The text of a string buffer up to its first zero byte, never beyond its
// size.
inline std::string BufferText(const char* text, unsigned size) {
    return text != nullptr ? std::string(text, strnlen(text, size)) : std::string();
}

}  // namespace config_valid
}  // namespace ip_application

#endif  // IP_APP_VALID_READ_VALUE_H
