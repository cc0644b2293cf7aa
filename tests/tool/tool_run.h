// Runs the ipapp-validate executable through the shell and captures what it
// does.
#ifndef IPAPP_TESTS_TOOL_RUN_H
#define IPAPP_TESTS_TOOL_RUN_H

#include <string>
#include <vector>

struct ToolRun {
    int status = -1;  // the exit status; the shell makes a death by signal 128 + signal
    std::string out;
    std::string err;
};

// environment: NAME=VALUE settings for the tool's process, separated by blanks.
ToolRun RunIpappValidate(const std::vector<std::string>& arguments,
                         const std::string& environment = "");

// The exit status of a run whose stdout is a pipe nobody reads.
int RunIpappValidateIntoClosedPipe(const std::vector<std::string>& arguments);

std::string ReadFile(const std::string& path);

#endif
