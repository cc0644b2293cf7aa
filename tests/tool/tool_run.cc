#include "tool_run.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "ipapp_test_support/scratch_directory.h"

namespace {

std::string ShellQuoted(const std::string& text) {
    std::string quoted = "'";
    for (char c : text) {
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    }
    return quoted + "'";
}

std::string CommandLine(const std::vector<std::string>& arguments) {
    std::string line = ShellQuoted(IPAPP_VALIDATE);
    for (const std::string& argument : arguments) {
        line += ' ' + ShellQuoted(argument);
    }
    return line;
}

// The shell may run the tool in its own process, so a death by signal can
// reach us either way.
int Shell(const std::string& command) {
    const int status = std::system(command.c_str());
    if (status == -1) {
        throw std::runtime_error("cannot run: " + command);
    }
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

}  // namespace

std::string ReadFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

ToolRun RunIpappValidate(const std::vector<std::string>& arguments,
                         const std::string& before_command) {
    const ipapp_test::ScratchDirectory directory;
    const std::string out = (directory.path() / "out").string();
    const std::string err = (directory.path() / "err").string();
    ToolRun run;
    run.status = Shell(before_command + ' ' + CommandLine(arguments) + " >" + ShellQuoted(out) +
                       " 2>" + ShellQuoted(err));
    run.out = ReadFile(out);
    run.err = ReadFile(err);
    return run;
}

int RunIpappValidateIntoClosedPipe(const std::vector<std::string>& arguments) {
    int fds[2];
    if (pipe(fds) != 0) {
        throw std::runtime_error("pipe failed");
    }
    close(fds[0]);
    const int status = RunIpappValidateRedirected(arguments, ">&" + std::to_string(fds[1]));
    close(fds[1]);
    return status;
}

int RunIpappValidateRedirected(const std::vector<std::string>& arguments,
                               const std::string& redirections) {
    return Shell(CommandLine(arguments) + " 2>/dev/null " + redirections);
}
