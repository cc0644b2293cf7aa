// Captures the host's fault reports and debug lines for the life of the
// object, so tests can see what the plug-in reported.
#ifndef TESTS_PLUGIN_HOST_LOG_H
#define TESTS_PLUGIN_HOST_LOG_H

#include <cstdio>
#include <string>
#include <vector>

namespace plugin_test {

struct Fault {
    std::string file;
    int line;
    std::string function;
    std::string text;
    int code;
};

class HostLog {
  public:
    HostLog();
    ~HostLog();
    HostLog(const HostLog&) = delete;
    HostLog& operator=(const HostLog&) = delete;

    // The fault reports so far, in order.
    std::vector<Fault> Faults();
    // The texts of the debug lines so far, in order.
    std::vector<std::string> DebugLines();

  private:
    std::vector<std::string> Lines();

    char* buffer_ = nullptr;
    size_t size_ = 0;
    FILE* stream_;
};

}  // namespace plugin_test

#endif  // TESTS_PLUGIN_HOST_LOG_H
