#include "trace_line.h"

#include <cstdio>

#include "message_line.h"

namespace ipapp_validate {

std::string TraceLine(const confdstore::trace::Call& call) {
    std::string line = "trace: " + MessageLine(call.function);
    for (std::string_view part : {call.path, call.argument}) {
        if (!part.empty()) {
            line += " " + MessageLine(part);
        }
    }
    return line + (call.returned ? " => " : " -> ") + MessageLine(call.outcome);
}

void WriteTraceLine(const confdstore::trace::Call& call) {
    try {
        const std::string line = TraceLine(call) + "\n";
        std::fwrite(line.data(), 1, line.size(), stderr);
        std::fflush(stderr);
    } catch (...) {
        // Out of memory while tracing: the line is lost, the plug-in's call goes on.
    }
}

void TraceCallsToStderr() {
    confdstore::trace::set_sink(WriteTraceLine);
}

}  // namespace ipapp_validate
