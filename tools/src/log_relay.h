// The child's stderr, line by line: fault reports, debug and trace lines go on to
// the log at once; anything else the plug-in printed (an assertion message,
// stray output) is held back, to become the crash report or, after a clean
// run, to follow the log lines.
#ifndef IPAPP_VALIDATE_LOG_RELAY_H
#define IPAPP_VALIDATE_LOG_RELAY_H

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace ipapp_validate {

class LogRelay {
  public:
    explicit LogRelay(FILE* log) : log_(log) {}

    void Feed(std::string_view bytes);
    // Ends an unterminated last line.
    void Finish();

    // The lines that were not fault reports, debug or trace lines.
    const std::vector<std::string>& other_lines() const { return other_lines_; }
    // Writes them to the log.
    void ReleaseOtherLines();

  private:
    void Line(std::string line);

    FILE* log_;
    std::string partial_;
    std::vector<std::string> other_lines_;
};

}  // namespace ipapp_validate

#endif
