// Layout, switches and robustness of the fault report and debug log.
#include <gtest/gtest.h>
#include <stdarg.h>

#include <map>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "velmw_log.h"

namespace {

void log_debug(void* handle, const char* format, ...) {
    va_list args;
    va_start(args, format);
    velmw_vlog_debug(handle, format, args);
    va_end(args);
}

// What `calls` wrote to stderr, where the log goes unless the host sets a stream.
template <typename Calls>
std::string written_to_stderr(Calls calls) {
    testing::internal::CaptureStderr();
    calls();
    return testing::internal::GetCapturedStderr();
}

TEST(FaultReport, IsOneLineWithItsOrigin) {
    const std::string long_text(100000, 'x');
    const struct {
        int code;
        const char* function;
        const char* file;
        int line;
        const char* text;
        std::string expected;
    } cases[] = {
        {0, "ReadConfig", "src/lib/config", 133, "Unspecified IPv4 address for key '5'",
         "fault: src/lib/config:133: ReadConfig: Unspecified IPv4 address for key '5' (code 0)\n"},
        {-7, "f", "a.c", -1, "t", "fault: a.c:-1: f: t (code -7)\n"},
        {3, nullptr, nullptr, 9, nullptr, "fault: (null):9: (null): (null) (code 3)\n"},
        {0, "f", "a.c", 1, "\n\n", "fault: a.c:1: f:  (code 0)\n"},
        {0, "f", "a.c", 1, "50%s %d", "fault: a.c:1: f: 50%s %d (code 0)\n"},
        {0, "f", "a.c", 1, "one\ntwo\r\n", "fault: a.c:1: f: one\\ntwo\\r (code 0)\n"},
        {0, "f\x01", "a.c", 1, "a\tb\x1b\x7f", "fault: a.c:1: f\\x01: a\tb\\x1b\\x7f (code 0)\n"},
        {0, "f", "a.c", 1, long_text.c_str(), "fault: a.c:1: f: " + long_text + " (code 0)\n"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(
            written_to_stderr([&] { velmw_gen_fault(c.code, c.function, c.file, c.line, c.text); }),
            c.expected);
    }
}

// Only the handle the host gave out writes, and only while debug is on;
// fault reports are written either way.
TEST(DebugLog, FormatsOneLineThroughTheHostsHandleWhileOn) {
    void* handle = get_config_vald_log_handle();
    ASSERT_NE(handle, nullptr);
    int foreign;
    const std::string long_key(5000, 'k');
    const std::string text = written_to_stderr([&] {
        log_debug(handle, "compound ID %u!", 65541u);
        log_debug(handle, "'%s' and '%s'", "a", "b");
        log_debug(handle, "key %s end", long_key.c_str());
        log_debug(handle, "trailing newline dropped\n");
        log_debug(handle, nullptr);
        log_debug(nullptr, "no handle");
        log_debug(&foreign, "not a handle of the host");
        velmw_log_set_debug_enabled(0);
        EXPECT_EQ(get_config_vald_log_handle(), nullptr);
        log_debug(handle, "kept handle, logging off");
        velmw_gen_fault(1, "f", "a.c", 2, "still reported");
        velmw_log_set_debug_enabled(1);
        EXPECT_EQ(get_config_vald_log_handle(), handle);
        log_debug(handle, "on again");
    });
    EXPECT_EQ(text, "debug: compound ID 65541!\ndebug: 'a' and 'b'\ndebug: key " + long_key +
                        " end\ndebug: trailing newline dropped\ndebug: (null)\n"
                        "fault: a.c:2: f: still reported (code 1)\ndebug: on again\n");
}

// Each writer writes the same long line; a line cut or interleaved shows up
// as a line that differs from its writer's.
TEST(LogStream, LinesOfConcurrentWritersArriveWhole) {
    constexpr int kThreads = 8;
    constexpr int kLinesPerThread = 300;
    const std::string padding(700, '.');
    std::istringstream text(written_to_stderr([&] {
        std::vector<std::thread> writers;
        for (int t = 0; t < kThreads; ++t) {
            writers.emplace_back([&padding, t] {
                for (int n = 0; n < kLinesPerThread; ++n) {
                    velmw_gen_fault(t, "w", "a.c", 1, padding.c_str());
                }
            });
        }
        for (std::thread& writer : writers) {
            writer.join();
        }
    }));
    std::map<std::string, int> count;
    for (std::string line; std::getline(text, line);) {
        ++count[line];
    }
    for (int t = 0; t < kThreads; ++t) {
        EXPECT_EQ(count["fault: a.c:1: w: " + padding + " (code " + std::to_string(t) + ")"],
                  kLinesPerThread);
    }
    EXPECT_EQ(count.size(), size_t{kThreads});
}

}  // namespace
