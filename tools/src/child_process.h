// Runs a piece of work in a child process and collects what it reports: the
// bytes it writes to its record file, its stdout and stderr (through a
// LogRelay), and how it ended. The child is always reaped; its death at any
// moment, even in the middle of a write, ends the collection. A child that
// writes no record for longer than a call may take is killed.
#ifndef IPAPP_VALIDATE_CHILD_PROCESS_H
#define IPAPP_VALIDATE_CHILD_PROCESS_H

#include <chrono>
#include <functional>
#include <string>

#include "log_relay.h"

namespace ipapp_validate {

// How long one call into the plug-in may take unless told otherwise: large
// against any call's time, small against the time a CI job waits.
constexpr std::chrono::seconds kDefaultCallTimeout{60};

struct ChildEnd {
    bool signaled = false;  // killed by a signal rather than exiting
    int code = 0;           // the exit status or the signal number
    // Non-zero when the parent killed the child because a call took longer.
    std::chrono::seconds timed_out_after{0};
};

struct ChildRun {
    std::string records;
    ChildEnd end;
};

// work runs in the child with the record file's descriptor and returns the
// child's exit status; it writes to the file whenever a call ends. When the
// file does not grow for call_timeout (since the child's start or the last
// bytes; looked at once a second), the child is killed (SIGKILL). Throws
// std::system_error when no child can be started.
ChildRun RunInChild(const std::function<int(int record_fd)>& work, LogRelay& relay,
                    std::chrono::seconds call_timeout);

}  // namespace ipapp_validate

#endif
