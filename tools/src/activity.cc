#include "activity.h"

#include <unistd.h>

#include <cstring>
#include <iterator>

#include "message_line.h"

namespace ipapp_validate {
namespace {

// The activity as printed, for the signal handler, which may not allocate.
char activity_line[kMaxMessageLineBytes + 4];
volatile sig_atomic_t activity_line_length = 0;

const char* SignalName(int signal_number) {
    switch (signal_number) {
        case SIGSEGV:
            return "Segmentation fault";
        case SIGBUS:
            return "Bus error";
        case SIGFPE:
            return "Floating point exception";
        case SIGILL:
            return "Illegal instruction";
        default:
            return "Aborted";
    }
}

void Write(const char* text, size_t length) {
    while (length > 0) {
        const ssize_t written = write(STDERR_FILENO, text, length);
        if (written <= 0) {
            return;
        }
        text += written;
        length -= static_cast<size_t>(written);
    }
}

void WriteText(const char* text) {
    Write(text, std::strlen(text));
}

extern "C" void ReportFatalSignal(int signal_number) {
    WriteText("ipapp-validate: ");
    Write(activity_line, static_cast<size_t>(activity_line_length));
    WriteText(" failed: ");
    WriteText(SignalName(signal_number));
    WriteText("\n");
    _exit(2);
}

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kSanitizerBuild = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr bool kSanitizerBuild = true;
#else
constexpr bool kSanitizerBuild = false;
#endif
#else
constexpr bool kSanitizerBuild = false;
#endif

}  // namespace

void Activity::Start(std::string what) {
    what_ = std::move(what);
    const std::string line = MessageLine(what_);
    activity_line_length = 0;
    std::memcpy(activity_line, line.data(), line.size());
    activity_line_length = static_cast<sig_atomic_t>(line.size());
}

FatalSignalGuard::FatalSignalGuard() {
    if (kSanitizerBuild) {
        return;
    }
    struct sigaction action {};
    action.sa_handler = ReportFatalSignal;
    sigemptyset(&action.sa_mask);
    for (size_t i = 0; i < std::size(kSignals); ++i) {
        sigaction(kSignals[i], &action, &previous_[i]);
    }
}

FatalSignalGuard::~FatalSignalGuard() {
    if (kSanitizerBuild) {
        return;
    }
    for (size_t i = 0; i < std::size(kSignals); ++i) {
        sigaction(kSignals[i], &previous_[i], nullptr);
    }
}

}  // namespace ipapp_validate
