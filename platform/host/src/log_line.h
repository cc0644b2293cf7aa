// Builds the lines of the fault report and the debug log (layout in
// velmw_log.h). Every line ends in exactly one newline and holds no other.
#ifndef VELCONFD_LOG_LINE_H
#define VELCONFD_LOG_LINE_H

#include <stdarg.h>

#include <string>

namespace velconfd {

std::string fault_line(int code, const char* function, const char* file, int line,
                       const char* text);

std::string debug_line(const char* format, va_list args);

}  // namespace velconfd

#endif  // VELCONFD_LOG_LINE_H
