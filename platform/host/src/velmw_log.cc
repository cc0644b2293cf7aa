// The fault report and debug log of the host: one process-wide sink that
// serializes whole lines, so lines of concurrent writers never interleave.
#include "velmw_log.h"

#include <atomic>
#include <mutex>
#include <string>

#include "log_line.h"

namespace {

struct LogSink {
    std::mutex mutex;
    FILE* stream = nullptr;  // null means stderr
    std::atomic<bool> debug_enabled{true};
};

LogSink& sink() {
    static LogSink instance;
    return instance;
}

// The debug handle is the sink itself: a plug-in can only get it from
// get_config_vald_log_handle, and anything else is not ours to write to.
velmw_log_handle_t debug_handle() {
    return &sink();
}

void write_line(const std::string& line) {
    LogSink& out = sink();
    std::lock_guard<std::mutex> lock(out.mutex);
    FILE* stream = out.stream != nullptr ? out.stream : stderr;
    fwrite(line.data(), 1, line.size(), stream);
    fflush(stream);
}

}  // namespace

velmw_log_handle_t get_config_vald_log_handle(void) {
    return sink().debug_enabled ? debug_handle() : nullptr;
}

// A handle fetched while debug logging was on is kept by plug-ins for the
// life of the process, so turning debug off must also silence that handle.
void velmw_vlog_debug(velmw_log_handle_t handle, const char* format, va_list args) {
    if (handle != debug_handle() || !sink().debug_enabled) {
        return;
    }
    try {
        write_line(velconfd::debug_line(format, args));
    } catch (...) {
        // Out of memory while building a diagnostic: the line is lost, the caller goes on.
    }
}

void velmw_gen_fault(int code, const char* function, const char* file, int line, const char* text) {
    try {
        write_line(velconfd::fault_line(code, function, file, line, text));
    } catch (...) {
        // As for debug lines: a fault report never ends the caller's work.
    }
}

void velmw_log_set_stream(FILE* stream) {
    LogSink& out = sink();
    std::lock_guard<std::mutex> lock(out.mutex);
    out.stream = stream;
}

void velmw_log_set_debug_enabled(int enabled) {
    sink().debug_enabled = enabled != 0;
}
