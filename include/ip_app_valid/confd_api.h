// The ConfD API as the plug-in uses it.
//
// The plug-in reads ConfD values through ConfD's typed accessors, which check
// the value's type first. A value of an unexpected type is a programming
// error: the check prints the checked expression, the source and the function
// and aborts the process in every build type (NDEBUG does not disable it).
// This header must come before any ConfD header so that the accessors use it.
#ifndef IP_APP_VALID_CONFD_API_H
#define IP_APP_VALID_CONFD_API_H

#if defined(CONFD_LIB_H) && !defined(IP_APP_VALID_CONFD_ASSERT)
#error "include ip_app_valid/confd_api.h before any ConfD header"
#endif

// The name under which a source file reports assertion failures and faults;
// the build sets it per file.
#ifndef IPAPP_SOURCE_NAME
#define IPAPP_SOURCE_NAME __FILE__
#endif

namespace ip_application {
namespace config_valid {

// Prints "<program>: <file>:<line>: <function>: Assertion `<expression>' failed."
// to stderr and aborts.
[[noreturn]] void AssertionFailed(const char* expression, const char* file, int line,
                                  const char* function);

}  // namespace config_valid
}  // namespace ip_application

#define IP_APP_VALID_CONFD_ASSERT
#undef CONFD_ASSERT
#define CONFD_ASSERT(E)                                                      \
    (static_cast<bool>(E) ? void(0)                                          \
                          : ::ip_application::config_valid::AssertionFailed( \
                                #E, IPAPP_SOURCE_NAME, __LINE__, __PRETTY_FUNCTION__))

#include <confd_cdb.h>
#include <confd_lib.h>
#include <confd_maapi.h>

#endif  // IP_APP_VALID_CONFD_API_H
