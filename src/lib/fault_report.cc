#include "fault_report.h"

#include <velmw_log.h>

#include <cstdarg>
#include <cstdio>

namespace ip_application {
namespace config_valid {

namespace {

constexpr int kFaultCode = 0;
constexpr size_t kFaultTextSize = 300;

}  // namespace

void ReportFault(const SourceSite& site, const char* format, ...) {
    char text[kFaultTextSize] = {};
    va_list args;
    va_start(args, format);
    std::vsnprintf(text, sizeof text, format, args);
    va_end(args);
    velmw_gen_fault(kFaultCode, site.function, site.file, site.line, text);
}

}  // namespace config_valid
}  // namespace ip_application
