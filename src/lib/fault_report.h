// Fault reports: data anomalies found while reading the configuration (an
// unspecified address where a real one is required). They go to the host's
// fault facility; they never fail the transaction.
#ifndef IP_APP_VALID_FAULT_REPORT_H
#define IP_APP_VALID_FAULT_REPORT_H

#include "ip_app_valid/confd_api.h"

namespace ip_application {
namespace config_valid {

// Where a fault was found: the reporting function as the language names it,
// the source name and the line.
struct SourceSite {
    const char* function;
    const char* file;
    int line;
};

// Formats the text into a zeroed 300-byte buffer (longer texts are cut) and
// reports it with code 0 and the site.
void ReportFault(const SourceSite& site, const char* format, ...)
    __attribute__((format(printf, 2, 3)));

}  // namespace config_valid
}  // namespace ip_application

// The site of the expansion: the enclosing function, this file's source name
// and line.
#define IPAPP_SOURCE_SITE \
    (::ip_application::config_valid::SourceSite{__func__, IPAPP_SOURCE_NAME, __LINE__})

#endif  // IP_APP_VALID_FAULT_REPORT_H
