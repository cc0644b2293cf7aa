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

// before_command: shell words before the tool's command, NAME=VALUE settings
// for its process separated by blanks, or a command and ';' ("ulimit -v N;").
ToolRun RunIpappValidate(const std::vector<std::string>& arguments,
                         const std::string& before_command = "");

// The exit status of a run whose stdout is a pipe nobody reads.
int RunIpappValidateIntoClosedPipe(const std::vector<std::string>& arguments);

// The exit status of a run with the shell's redirections (">&-").
int RunIpappValidateRedirected(const std::vector<std::string>& arguments,
                               const std::string& redirections);

std::string ReadFile(const std::string& path);

#endif
