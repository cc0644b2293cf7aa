#include "server_process.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <stdexcept>
#include <thread>

extern char** environ;

namespace ipapp_twin {
namespace {

constexpr auto kStopGrace = std::chrono::seconds(5);
constexpr auto kPollInterval = std::chrono::milliseconds(20);

std::vector<char*> Pointers(std::vector<std::string>& strings) {
    std::vector<char*> pointers;
    for (std::string& text : strings) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

std::string DescribeStatus(int status) {
    if (WIFSIGNALED(status)) {
        return std::string("killed by signal ") + std::to_string(WTERMSIG(status)) + " (" +
               strsignal(WTERMSIG(status)) + ")";
    }
    return "exited with status " + std::to_string(WEXITSTATUS(status));
}

// In the child: a process group of its own, SIGTERM when the launcher
// dies (even by SIGKILL), default signal mask, stdin from /dev/null, stdout
// and stderr to the log.
[[noreturn]] void Exec(std::vector<std::string> arguments, std::vector<std::string> environment,
                       const std::string& log_file) {
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    const int input = open("/dev/null", O_RDONLY);
    const int log = open(log_file.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
    if (input < 0 || log < 0) {
        _exit(127);
    }
    dup2(input, STDIN_FILENO);
    dup2(log, STDOUT_FILENO);
    dup2(log, STDERR_FILENO);
    std::vector<char*> argv = Pointers(arguments);
    std::vector<char*> envp = Pointers(environment);
    execve(argv[0], argv.data(), envp.data());
    const std::string failure = arguments[0] + ": cannot run: " + strerror(errno) + "\n";
    (void)!write(STDERR_FILENO, failure.data(), failure.size());
    _exit(127);
}

pid_t Start(const std::vector<std::string>& arguments, const std::string& log_file,
            const std::vector<std::string>& extra_environment) {
    std::vector<std::string> environment(extra_environment);
    for (char** variable = environ; *variable != nullptr; ++variable) {
        environment.emplace_back(*variable);
    }
    const pid_t pid = fork();
    if (pid < 0) {
        throw std::runtime_error("cannot start " + arguments[0] + ": " + strerror(errno));
    }
    if (pid == 0) {
        Exec(arguments, environment, log_file);
    }
    // Also here, so that a signal sent right away reaches the whole group.
    setpgid(pid, pid);
    return pid;
}

}  // namespace

ServerProcess::ServerProcess(std::string name, const std::vector<std::string>& arguments,
                             const std::string& log_file,
                             const std::vector<std::string>& extra_environment)
    : name_(std::move(name)), pid_(Start(arguments, log_file, extra_environment)) {}

ServerProcess::~ServerProcess() {
    Stop();
}

void ServerProcess::Reaped(int status) {
    pid_ = -1;
    ending_ = DescribeStatus(status);
}

bool ServerProcess::Running() {
    int status = 0;
    if (pid_ > 0 && waitpid(pid_, &status, WNOHANG) == pid_) {
        Reaped(status);
    }
    return pid_ > 0;
}

void ServerProcess::Stop() {
    if (pid_ <= 0) {
        return;
    }
    const pid_t group = pid_;
    kill(-group, SIGTERM);
    const auto deadline = std::chrono::steady_clock::now() + kStopGrace;
    while (Running() && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(kPollInterval);
    }
    // What is left of the group (the leader, or processes it forked).
    kill(-group, SIGKILL);
    if (pid_ > 0) {
        int status = 0;
        waitpid(pid_, &status, 0);
        Reaped(status);
    }
}

void RunToEnd(const std::vector<std::string>& arguments, const std::string& log_file) {
    const pid_t pid = Start(arguments, log_file, {});
    int status = 0;
    while (waitpid(pid, &status, 0) < 0) {
        if (errno != EINTR) {
            throw std::runtime_error("cannot wait for " + arguments[0] + ": " + strerror(errno));
        }
    }
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        throw std::runtime_error(arguments[0] + " " + DescribeStatus(status) + " (see " + log_file +
                                 ")");
    }
}

}  // namespace ipapp_twin
