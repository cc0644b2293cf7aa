#include "child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <string_view>
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

// The parent's ends of the child's pipes: record bytes are kept, output goes
// to the relay.
class Collector {
  public:
    Collector(int records_fd, int output_fd, std::string& records, LogRelay& relay)
        : records_fd_(records_fd), output_fd_(output_fd), records_(records), relay_(relay) {}
    ~Collector() {
        CloseFd(records_fd_);
        CloseFd(output_fd_);
    }
    Collector(const Collector&) = delete;
    Collector& operator=(const Collector&) = delete;

    // Reads both pipes until the child has closed them (at its exit at the
    // latest). Returns false, leaving them open, when no record bytes came
    // for call_timeout.
    bool Collect(std::chrono::seconds call_timeout) {
        last_record_ = Clock::now();
        while (Open()) {
            const Clock::duration left = last_record_ + call_timeout - Clock::now();
            if (left <= Clock::duration::zero()) {
                return false;
            }
            ReadReady(CeilMilliseconds(left));
        }
        return true;
    }

    // Reads what is left without waiting: after the child's death a process
    // it started may still hold the pipes open.
    void Drain() {
        while (Open() && ReadReady(0)) {
        }
    }

  private:
    using Clock = std::chrono::steady_clock;

    static int CeilMilliseconds(Clock::duration duration) {
        return static_cast<int>(std::chrono::ceil<std::chrono::milliseconds>(duration).count());
    }

    bool Open() const { return records_fd_ >= 0 || output_fd_ >= 0; }

    // Waits up to timeout_ms for either pipe and reads once from each that is
    // ready. Returns whether anything was ready (or the wait was interrupted).
    bool ReadReady(int timeout_ms) {
        pollfd fds[2] = {{records_fd_, POLLIN, 0}, {output_fd_, POLLIN, 0}};
        const int ready = poll(fds, 2, timeout_ms);
        if (ready < 0 && errno == EINTR) {
            return true;
        }
        if (ready < 0) {
            ThrowSystemError("cannot wait for the plug-in's process");
        }
        if (fds[0].revents != 0) {
            ReadFrom(records_fd_);
        }
        if (fds[1].revents != 0) {
            ReadFrom(output_fd_);
        }
        return ready > 0;
    }

    // One read; the pipe's end closes it.
    void ReadFrom(int& fd) {
        char buffer[65536];
        const ssize_t n = read(fd, buffer, sizeof buffer);
        if (n < 0 && errno == EINTR) {
            return;
        }
        if (n <= 0) {
            CloseFd(fd);
            return;
        }
        const std::string_view bytes(buffer, static_cast<size_t>(n));
        if (&fd == &records_fd_) {
            records_.append(bytes);
            last_record_ = Clock::now();
        } else {
            relay_.Feed(bytes);
        }
    }

    int records_fd_;
    int output_fd_;
    std::string& records_;
    LogRelay& relay_;
    Clock::time_point last_record_;
};

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

    // Ends a call that takes too long. A child that had already exited (a
    // process it started held the pipes) keeps its own ending.
    ChildEnd KilledForTakingLonger(std::chrono::seconds call_timeout) {
        kill(pid_, SIGKILL);
        ChildEnd end = Reaped();
        if (end.signaled && end.code == SIGKILL) {
            end.timed_out_after = call_timeout;
        }
        return end;
    }

  private:
    pid_t pid_;
};

}  // namespace

ChildRun RunInChild(const std::function<int(int record_fd)>& work, LogRelay& relay,
                    std::chrono::seconds call_timeout) {
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
    Collector collector(records.read, output.read, run.records, relay);
    if (collector.Collect(call_timeout)) {
        run.end = child.Reaped();
    } else {
        run.end = child.KilledForTakingLonger(call_timeout);
        collector.Drain();
    }
    relay.Finish();
    return run;
}

}  // namespace ipapp_validate
