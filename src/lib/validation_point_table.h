// The validation points the plug-in serves and the handler of each.
#ifndef IP_APP_VALID_VALIDATION_POINT_TABLE_H
#define IP_APP_VALID_VALIDATION_POINT_TABLE_H

#include "ip_app_valid/confd_api.h"

#include <array>

#include "ip_app_valid.h"

namespace ip_application {
namespace config_valid {

struct ValidationPoint {
    ValidationHandler* handler;
    const char* name;
};

// The data model's validation points carry exactly these names; two of them
// are spelled like their handlers on purpose.
extern const std::array<ValidationPoint, 11> kValidationPoints;

// The handler of the first point, in table order, whose name begins the given
// name (further characters are ignored); null when none does.
ValidationHandler* FindValidationHandler(const char* point_name);

}  // namespace config_valid
}  // namespace ip_application

#endif  // IP_APP_VALID_VALIDATION_POINT_TABLE_H
