#include "log_relay.h"

namespace ipapp_validate {
namespace {

bool IsLogLine(const std::string& line) {
    return line.compare(0, 7, "fault: ") == 0 || line.compare(0, 7, "debug: ") == 0 ||
           line.compare(0, 7, "trace: ") == 0;
}

void WriteLine(FILE* log, const std::string& line) {
    std::fwrite(line.data(), 1, line.size(), log);
    std::fputc('\n', log);
    std::fflush(log);
}

}  // namespace

void LogRelay::Feed(std::string_view bytes) {
    for (size_t newline = bytes.find('\n'); newline != std::string_view::npos;
         newline = bytes.find('\n')) {
        partial_.append(bytes.substr(0, newline));
        Line(std::move(partial_));
        partial_.clear();
        bytes.remove_prefix(newline + 1);
    }
    partial_.append(bytes);
}

void LogRelay::Finish() {
    if (!partial_.empty()) {
        Line(std::move(partial_));
        partial_.clear();
    }
}

void LogRelay::ReleaseOtherLines() {
    for (const std::string& line : other_lines_) {
        WriteLine(log_, line);
    }
    other_lines_.clear();
}

void LogRelay::Line(std::string line) {
    if (IsLogLine(line)) {
        WriteLine(log_, line);
    } else {
        other_lines_.push_back(std::move(line));
    }
}

}  // namespace ipapp_validate
