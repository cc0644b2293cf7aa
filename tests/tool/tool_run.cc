#include "tool_run.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

extern char** environ;

std::vector<std::string> ToolRun::ErrLines() const {
    std::vector<std::string> lines;
    std::istringstream stream(err);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::string ReadFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

TempDir::TempDir() {
    char directory[] = "/tmp/ipapp-tool-test-XXXXXX";
    if (mkdtemp(directory) == nullptr) {
        throw std::runtime_error("mkdtemp failed");
    }
    path_ = directory;
}

TempDir::~TempDir() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

namespace {

// Starts the tool with the file actions and returns its exit status, or 128
// + signal.
int Spawn(const std::vector<std::string>& arguments, const std::vector<std::string>& environment,
          const posix_spawn_file_actions_t& actions) {
    std::vector<std::string> argv_text{IPAPP_VALIDATE};
    argv_text.insert(argv_text.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (std::string& argument : argv_text) {
        argv.push_back(argument.data());
    }
    argv.push_back(nullptr);
    std::vector<std::string> env_text(environment);
    for (char** entry = environ; *entry != nullptr; ++entry) {
        env_text.push_back(*entry);
    }
    std::vector<char*> envp;
    for (std::string& entry : env_text) {
        envp.push_back(entry.data());
    }
    envp.push_back(nullptr);
    pid_t pid = 0;
    if (posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), envp.data()) != 0) {
        throw std::runtime_error("cannot start " + argv_text[0]);
    }
    int status = 0;
    waitpid(pid, &status, 0);
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

}  // namespace

ToolRun RunIpappValidate(const std::vector<std::string>& arguments,
                         const std::vector<std::string>& environment) {
    const TempDir directory;
    const std::string out_path = directory.Path("stdout");
    const std::string err_path = directory.Path("stderr");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, out_path.c_str(),
                                     O_WRONLY | O_CREAT | O_TRUNC, 0600);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, err_path.c_str(),
                                     O_WRONLY | O_CREAT | O_TRUNC, 0600);
    ToolRun run;
    run.status = Spawn(arguments, environment, actions);
    posix_spawn_file_actions_destroy(&actions);
    run.out = ReadFile(out_path);
    run.err = ReadFile(err_path);
    return run;
}

int RunIpappValidateIntoClosedPipe(const std::vector<std::string>& arguments) {
    int fds[2];
    if (pipe(fds) != 0) {
        throw std::runtime_error("pipe failed");
    }
    close(fds[0]);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, fds[1], STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    const int status = Spawn(arguments, {}, actions);
    posix_spawn_file_actions_destroy(&actions);
    close(fds[1]);
    return status;
}
