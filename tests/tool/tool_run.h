// Runs the ipapp-validate executable and captures what it does.
#ifndef IPAPP_TESTS_TOOL_RUN_H
#define IPAPP_TESTS_TOOL_RUN_H

#include <string>
#include <vector>

struct ToolRun {
    int status = -1;  // the exit status, or 128 + signal when it was killed
    std::string out;
    std::string err;

    std::vector<std::string> ErrLines() const;
};

// environment: extra NAME=VALUE entries on top of the test's own.
ToolRun RunIpappValidate(const std::vector<std::string>& arguments,
                         const std::vector<std::string>& environment = {});

// The exit status of a run whose stdout is a pipe nobody reads.
int RunIpappValidateIntoClosedPipe(const std::vector<std::string>& arguments);

std::string ReadFile(const std::string& path);

// A fresh directory, removed with everything in it at the end of its scope.
class TempDir {
  public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    std::string Path(const std::string& name) const { return path_ + "/" + name; }

  private:
    std::string path_;
};

#endif
