// Sends the host's fault and debug lines to memory for the life of the
// object and gives them back as lines.
#ifndef TESTS_HOST_CAPTURED_LOG_H
#define TESTS_HOST_CAPTURED_LOG_H

#include <stdio.h>

#include <string>
#include <vector>

class CapturedLog {
  public:
    CapturedLog();
    ~CapturedLog();
    CapturedLog(const CapturedLog&) = delete;
    CapturedLog& operator=(const CapturedLog&) = delete;

    // Everything written so far, exactly as written.
    std::string Text();
    // The text split at newlines; a last line without newline is kept.
    std::vector<std::string> Lines();

  private:
    char* buffer_ = nullptr;
    size_t size_ = 0;
    FILE* stream_;
};

// velmw_vlog_debug with its arguments given in place.
void log_debug(void* handle, const char* format, ...);

#endif  // TESTS_HOST_CAPTURED_LOG_H
