// Captures the host's fault reports and debug lines for the life of the
// object, so tests can see what the plug-in reported.
#ifndef TESTS_PLUGIN_HOST_LOG_H
#define TESTS_PLUGIN_HOST_LOG_H

#include <cstdio>
#include <string>
#include <vector>

namespace plugin_test {

class HostLog {
  public:
    HostLog();
    ~HostLog();
    HostLog(const HostLog&) = delete;
    HostLog& operator=(const HostLog&) = delete;

    // The lines so far, "fault: <file>:<line>: <function>: <text> (code <code>)"
    // and "debug: <text>", with a fault's source line written "<line>".
    std::vector<std::string> Lines();

  private:
    char* buffer_ = nullptr;
    size_t size_ = 0;
    FILE* stream_;
};

}  // namespace plugin_test

#endif  // TESTS_PLUGIN_HOST_LOG_H
