// Where fault reports and debug lines go: stderr, or a file opened for
// appending.
#ifndef IPAPP_VALIDATE_LOG_FILE_H
#define IPAPP_VALIDATE_LOG_FILE_H

#include <cstdio>
#include <string>

namespace ipapp_validate {

class LogFile {
  public:
    // An empty path means stderr. Throws InputError when the file cannot be
    // opened.
    explicit LogFile(const std::string& path);
    ~LogFile();
    LogFile(const LogFile&) = delete;
    LogFile& operator=(const LogFile&) = delete;

    FILE* stream() const { return stream_; }

  private:
    FILE* stream_;
    bool owned_;
};

}  // namespace ipapp_validate

#endif
