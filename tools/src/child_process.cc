#include "child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
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

// The records go to a file in memory that the parent reads once the child
// is gone: a write to it wakes nobody (a pipe wakes the parent at every
// call), and what was written survives the child's death.
class RecordFile {
  public:
    RecordFile() : fd_(memfd_create("ipapp-validate-records", MFD_CLOEXEC)) {
        if (fd_ < 0) {
            ThrowSystemError("cannot create the plug-in's record file");
        }
    }
    ~RecordFile() { close(fd_); }
    RecordFile(const RecordFile&) = delete;
    RecordFile& operator=(const RecordFile&) = delete;

    int fd() const { return fd_; }

    off_t Size() const {
        struct stat status {};
        if (fstat(fd_, &status) != 0) {
            ThrowSystemError("cannot read the plug-in's record file");
        }
        return status.st_size;
    }

    std::string Contents() const {
        std::string bytes(static_cast<size_t>(Size()), '\0');
        for (size_t done = 0; done < bytes.size();) {
            const ssize_t n =
                pread(fd_, bytes.data() + done, bytes.size() - done, static_cast<off_t>(done));
            if (n < 0 && errno == EINTR) {
                continue;
            }
            if (n <= 0) {
                ThrowSystemError("cannot read the plug-in's record file");
            }
            done += static_cast<size_t>(n);
        }
        return bytes;
    }

  private:
    int fd_;
};

// The child's side: it dies with the parent (a killed tool leaves no plug-in
// running, hung or not), its stdout and stderr go to the output pipe (so
// nothing the plug-in prints can reach the report), no core file is left
// behind when it aborts, and nothing of the parent's stdio buffers is
// written twice. It holds the life line's write end until it ends.
[[noreturn]] void BecomeChild(pid_t parent, int record_file, Pipe& life_line, Pipe& output,
                              const std::function<int(int)>& work) {
    // Cannot fail for a valid signal; the parent may be gone before it.
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) {
        _exit(125);
    }
    CloseFd(life_line.read);
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
        status = work(record_file);
    } catch (...) {
        std::fputs("ipapp-validate: the plug-in's process failed\n", stderr);
    }
    std::fflush(stdout);
    _exit(status);
}

// The parent's ends of the child's pipes: output goes to the relay, the life
// line ends when the child does; the record file's growth shows progress.
class Collector {
  public:
    Collector(int life_line_fd, int output_fd, const RecordFile& record_file, LogRelay& relay)
        : life_line_fd_(life_line_fd),
          output_fd_(output_fd),
          record_file_(record_file),
          relay_(relay) {}
    ~Collector() {
        CloseFd(life_line_fd_);
        CloseFd(output_fd_);
    }
    Collector(const Collector&) = delete;
    Collector& operator=(const Collector&) = delete;

    // Reads both pipes until the child has closed them (at its exit at the
    // latest). Returns false, leaving them open, when the record file did not
    // grow for call_timeout; its size is looked at least once a second.
    bool Collect(std::chrono::seconds call_timeout) {
        last_record_ = Clock::now();
        while (Open()) {
            const Clock::duration left = last_record_ + call_timeout - Clock::now();
            if (left <= Clock::duration::zero()) {
                return false;
            }
            ReadReady(CeilMilliseconds(std::min<Clock::duration>(left, std::chrono::seconds(1))));
            NoteProgress();
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

    bool Open() const { return life_line_fd_ >= 0 || output_fd_ >= 0; }

    void NoteProgress() {
        const off_t size = record_file_.Size();
        if (size != record_bytes_) {
            record_bytes_ = size;
            last_record_ = Clock::now();
        }
    }

    // Waits up to timeout_ms for either pipe and reads once from each that is
    // ready. Returns whether anything was ready (or the wait was interrupted).
    bool ReadReady(int timeout_ms) {
        pollfd fds[2] = {{life_line_fd_, POLLIN, 0}, {output_fd_, POLLIN, 0}};
        const int ready = poll(fds, 2, timeout_ms);
        if (ready < 0 && errno == EINTR) {
            return true;
        }
        if (ready < 0) {
            ThrowSystemError("cannot wait for the plug-in's process");
        }
        if (fds[0].revents != 0) {
            ReadFrom(life_line_fd_);
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
        if (&fd == &output_fd_) {
            relay_.Feed(std::string_view(buffer, static_cast<size_t>(n)));
        }
    }

    int life_line_fd_;
    int output_fd_;
    const RecordFile& record_file_;
    LogRelay& relay_;
    off_t record_bytes_ = 0;
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
    const RecordFile record_file;
    Pipe life_line;
    Pipe output;
    try {
        life_line = MakePipe();
        output = MakePipe();
    } catch (...) {
        for (int* fd : {&life_line.read, &life_line.write, &output.read, &output.write}) {
            CloseFd(*fd);
        }
        throw;
    }
    std::fflush(nullptr);
    const pid_t parent = getpid();
    const pid_t pid = fork();
    const int fork_error = errno;
    if (pid == 0) {
        BecomeChild(parent, record_file.fd(), life_line, output, work);
    }
    CloseFd(life_line.write);
    CloseFd(output.write);
    if (pid < 0) {
        CloseFd(life_line.read);
        CloseFd(output.read);
        ThrowSystemError("cannot start the plug-in's process", fork_error);
    }
    ChildGuard child(pid);
    ChildRun run;
    {
        Collector collector(life_line.read, output.read, record_file, relay);
        if (collector.Collect(call_timeout)) {
            run.end = child.Reaped();
        } else {
            run.end = child.KilledForTakingLonger(call_timeout);
            collector.Drain();
        }
    }
    relay.Finish();
    run.records = record_file.Contents();
    return run;
}

}  // namespace ipapp_validate
