// The child's stderr is cut into lines wherever the reads split it; log
// lines go on at once, other lines wait (the plug-in run test shows them
// released after the log lines).
#include <gtest/gtest.h>

#include <cstdio>

#include "log_relay.h"

namespace ipapp_validate {
namespace {

std::string Contents(FILE* file) {
    std::fflush(file);
    std::rewind(file);
    std::string text;
    for (int c = std::fgetc(file); c != EOF; c = std::fgetc(file)) {
        text += static_cast<char>(c);
    }
    return text;
}

const std::string kStream =
    "debug: first\n"
    "prog: src/lib/x:12: f: Assertion `a == b' failed.\n"
    "fault: src/lib/config:133: get: Unspecified (code 0)\n"
    "debugging is not a debug line\n"
    "no newline at the end";

TEST(LogRelay, SplitsLinesWhereverTheReadsEnd) {
    for (size_t piece = 1; piece <= kStream.size(); ++piece) {
        FILE* log = std::tmpfile();
        ASSERT_NE(log, nullptr);
        LogRelay relay(log);
        for (size_t at = 0; at < kStream.size(); at += piece) {
            relay.Feed(std::string_view(kStream).substr(at, piece));
        }
        relay.Finish();
        EXPECT_EQ(Contents(log),
                  "debug: first\nfault: src/lib/config:133: get: Unspecified (code 0)\n")
            << "pieces of " << piece;
        EXPECT_EQ(
            relay.other_lines(),
            (std::vector<std::string>{"prog: src/lib/x:12: f: Assertion `a == b' failed.",
                                      "debugging is not a debug line", "no newline at the end"}))
            << "pieces of " << piece;
        std::fclose(log);
    }
}

}  // namespace
}  // namespace ipapp_validate
