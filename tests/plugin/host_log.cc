#include "host_log.h"

#include <velmw_log.h>

#include <cstdlib>
#include <regex>
#include <sstream>
#include <stdexcept>

namespace plugin_test {

HostLog::HostLog() : stream_(open_memstream(&buffer_, &size_)) {
    if (stream_ == nullptr) {
        throw std::runtime_error("open_memstream failed");
    }
    velmw_log_set_stream(stream_);
}

HostLog::~HostLog() {
    velmw_log_set_stream(nullptr);
    std::fclose(stream_);
    std::free(buffer_);
}

std::vector<std::string> HostLog::Lines() {
    static const std::regex kFaultLine("^(fault: [^:]*):[0-9]+: ");
    std::fflush(stream_);
    std::istringstream text(std::string(buffer_, size_));
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) {
        lines.push_back(std::regex_replace(line, kFaultLine, "$1:<line>: "));
    }
    return lines;
}

}  // namespace plugin_test
