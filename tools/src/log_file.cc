#include "log_file.h"

#include <cerrno>
#include <cstring>

#include "input_error.h"

namespace ipapp_validate {

LogFile::LogFile(const std::string& path)
    : stream_(path.empty() ? stderr : std::fopen(path.c_str(), "ae")), owned_(!path.empty()) {
    if (stream_ == nullptr) {
        throw InputError(path + ": cannot open the log file: " + std::strerror(errno));
    }
}

LogFile::~LogFile() {
    if (owned_) {
        std::fclose(stream_);
    }
}

}  // namespace ipapp_validate
