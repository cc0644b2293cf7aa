#include "captured_log.h"

#include <stdarg.h>
#include <stdlib.h>

#include <sstream>

#include "velmw_log.h"

CapturedLog::CapturedLog() : stream_(open_memstream(&buffer_, &size_)) {
    velmw_log_set_stream(stream_);
}

CapturedLog::~CapturedLog() {
    velmw_log_set_stream(nullptr);
    fclose(stream_);
    free(buffer_);
}

std::string CapturedLog::Text() {
    fflush(stream_);
    return std::string(buffer_, size_);
}

std::vector<std::string> CapturedLog::Lines() {
    std::istringstream text(Text());
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) {
        lines.push_back(line);
    }
    return lines;
}

void log_debug(void* handle, const char* format, ...) {
    va_list args;
    va_start(args, format);
    velmw_vlog_debug(handle, format, args);
    va_end(args);
}
