// What the tool is doing ("loading FILE"), for the line that reports a
// failure of its own: an exception (out of memory, a system call that
// failed) or, while a FatalSignalGuard lives, a fatal signal.
#ifndef IPAPP_VALIDATE_ACTIVITY_H
#define IPAPP_VALIDATE_ACTIVITY_H

#include <signal.h>

#include <iterator>
#include <string>

namespace ipapp_validate {

class Activity {
  public:
    // Also the line a fatal signal gives from now on.
    void Start(std::string what);
    const std::string& what() const { return what_; }

  private:
    std::string what_;
};

// While it lives, SIGSEGV, SIGBUS, SIGFPE, SIGILL and SIGABRT end the
// process with exit status 2 and "ipapp-validate: <activity> failed:
// <signal>" instead of a death by the signal: libyang 2.1 dereferences
// allocations that failed when memory runs out. Handlers are restored when
// it ends, so a child forked later dies by its signals as it should. Not
// installed in sanitizer builds, whose own handlers report such faults.
class FatalSignalGuard {
  public:
    FatalSignalGuard();
    ~FatalSignalGuard();
    FatalSignalGuard(const FatalSignalGuard&) = delete;
    FatalSignalGuard& operator=(const FatalSignalGuard&) = delete;

  private:
    static constexpr int kSignals[] = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT};
    struct sigaction previous_[std::size(kSignals)];
};

}  // namespace ipapp_validate

#endif
