#include "ip_app_valid/confd_api.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>

namespace ip_application {
namespace config_valid {

// The line has the layout of the C library's own assertion message, so that
// operators and tests recognise it.
void AssertionFailed(const char* expression, const char* file, int line, const char* function) {
    std::fprintf(stderr, "%s: %s:%d: %s: Assertion `%s' failed.\n", program_invocation_short_name,
                 file, line, function, expression);
    std::fflush(stderr);
    std::abort();
}

}  // namespace config_valid
}  // namespace ip_application
