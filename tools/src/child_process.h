// Runs a piece of work in a child process and collects what it reports: the
// bytes it writes to its record pipe, its stdout and stderr (through a
// LogRelay), and how it ended. The child is always reaped; its death at any
// moment, even in the middle of a write, ends the collection.
#ifndef IPAPP_VALIDATE_CHILD_PROCESS_H
#define IPAPP_VALIDATE_CHILD_PROCESS_H

#include <functional>
#include <string>

#include "log_relay.h"

namespace ipapp_validate {

struct ChildEnd {
    bool signaled = false;  // killed by a signal rather than exiting
    int code = 0;           // the exit status or the signal number
};

struct ChildRun {
    std::string records;
    ChildEnd end;
};

// work runs in the child with the write end of the record pipe and returns
// the child's exit status. Throws std::system_error when no child can be
// started.
ChildRun RunInChild(const std::function<int(int record_fd)>& work, LogRelay& relay);

}  // namespace ipapp_validate

#endif
