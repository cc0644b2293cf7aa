#include "child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>

namespace ipapp_validate {
namespace {

[[noreturn]] void ThrowSystemError(const char* what, int error = errno) {
    throw std::system_error(error, std::generic_category(), what);
}

struct Pipe {
    int read = -1;
    int write = -1;
};

Pipe MakePipe() {
    int fds[2];
    if (pipe2(fds, O_CLOEXEC) != 0) {
        ThrowSystemError("cannot create a pipe to the plug-in's process");
    }
    return Pipe{fds[0], fds[1]};
}

void CloseFd(int& fd) {
    if (fd >= 0) {
        close(fd);
        fd = -1;
    }
}

// The child's side: its stdout and stderr go to the output pipe (so nothing
// the plug-in prints can reach the report), no core file is left behind when
// it aborts, and nothing of the parent's stdio buffers is written twice.
[[noreturn]] void BecomeChild(Pipe& records, Pipe& output, const std::function<int(int)>& work) {
    CloseFd(records.read);
    CloseFd(output.read);
    const int null_input = open("/dev/null", O_RDONLY);
    if (null_input >= 0) {
        dup2(null_input, STDIN_FILENO);
        close(null_input);
    }
    dup2(output.write, STDOUT_FILENO);
    dup2(output.write, STDERR_FILENO);
    CloseFd(output.write);
    const rlimit no_core{0, 0};
    setrlimit(RLIMIT_CORE, &no_core);
    int status = 125;
    try {
        status = work(records.write);
    } catch (...) {
        std::fputs("ipapp-validate: the plug-in's process failed\n", stderr);
    }
    std::fflush(stdout);
    _exit(status);
}

// Reads both pipes until the child has closed them (at its exit at the
// latest).
void Collect(int& records_fd, int& output_fd, std::string& records, LogRelay& relay) {
    char buffer[65536];
    while (records_fd >= 0 || output_fd >= 0) {
        pollfd fds[2] = {{records_fd, POLLIN, 0}, {output_fd, POLLIN, 0}};
        if (poll(fds, 2, -1) < 0) {
            if (errno == EINTR) {
                continue;
            }
            ThrowSystemError("cannot wait for the plug-in's process");
        }
        for (pollfd& polled : fds) {
            if (polled.fd < 0 || polled.revents == 0) {
                continue;
            }
            const ssize_t n = read(polled.fd, buffer, sizeof buffer);
            if (n < 0 && errno == EINTR) {
                continue;
            }
            if (n <= 0) {
                CloseFd(polled.fd == records_fd ? records_fd : output_fd);
                continue;
            }
            if (polled.fd == records_fd) {
                records.append(buffer, static_cast<size_t>(n));
            } else {
                relay.Feed(std::string_view(buffer, static_cast<size_t>(n)));
            }
        }
    }
}

ChildEnd Reap(pid_t pid) {
    int status = 0;
    while (waitpid(pid, &status, 0) < 0) {
        if (errno != EINTR) {
            ThrowSystemError("cannot reap the plug-in's process");
        }
    }
    if (WIFSIGNALED(status)) {
        return ChildEnd{true, WTERMSIG(status)};
    }
    return ChildEnd{false, WEXITSTATUS(status)};
}

// Kills and reaps the child when the parent leaves early.
class ChildGuard {
  public:
    explicit ChildGuard(pid_t pid) : pid_(pid) {}
    ~ChildGuard() {
        if (pid_ > 0) {
            kill(pid_, SIGKILL);
            waitpid(pid_, nullptr, 0);
        }
    }
    ChildGuard(const ChildGuard&) = delete;
    ChildGuard& operator=(const ChildGuard&) = delete;

    ChildEnd Reaped() {
        const ChildEnd end = Reap(pid_);
        pid_ = -1;
        return end;
    }

  private:
    pid_t pid_;
};

}  // namespace

ChildRun RunInChild(const std::function<int(int record_fd)>& work, LogRelay& relay) {
    Pipe records = MakePipe();
    Pipe output;
    try {
        output = MakePipe();
    } catch (...) {
        CloseFd(records.read);
        CloseFd(records.write);
        throw;
    }
    std::fflush(nullptr);
    const pid_t pid = fork();
    const int fork_error = errno;
    if (pid == 0) {
        BecomeChild(records, output, work);
    }
    CloseFd(records.write);
    CloseFd(output.write);
    if (pid < 0) {
        CloseFd(records.read);
        CloseFd(output.read);
        ThrowSystemError("cannot start the plug-in's process", fork_error);
    }
    ChildGuard child(pid);
    ChildRun run;
    try {
        Collect(records.read, output.read, run.records, relay);
    } catch (...) {
        CloseFd(records.read);
        CloseFd(output.read);
        throw;
    }
    relay.Finish();
    run.end = child.Reaped();
    return run;
}

}  // namespace ipapp_validate
