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
    std::fflush(stream_);
    std::istringstream text(std::string(buffer_, size_));
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::vector<Fault> HostLog::Faults() {
    // "fault: <file>:<line>: <function>: <text> (code <code>)"
    static const std::regex kFaultLine(
        R"(^fault: ([^:]*):([0-9]+): ([^:]*): (.*) \(code (-?[0-9]+)\)$)");
    std::vector<Fault> faults;
    for (const std::string& line : Lines()) {
        std::smatch match;
        if (std::regex_match(line, match, kFaultLine)) {
            faults.push_back(
                {match[1], std::stoi(match[2]), match[3], match[4], std::stoi(match[5])});
        }
    }
    return faults;
}

std::vector<std::string> HostLog::DebugLines() {
    const std::string prefix = "debug: ";
    std::vector<std::string> texts;
    for (const std::string& line : Lines()) {
        if (line.compare(0, prefix.size(), prefix) == 0) {
            texts.push_back(line.substr(prefix.size()));
        }
    }
    return texts;
}

}  // namespace plugin_test
