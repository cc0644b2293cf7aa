// Lines written from several threads at once arrive whole.
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "captured_log.h"
#include "velmw_log.h"

namespace {

constexpr int kThreads = 8;
constexpr int kLinesPerThread = 400;
const std::string kPadding(700, '.');

std::string text_of(int thread, int n) {
    return "t" + std::to_string(thread) + " n" + std::to_string(n) + " " + kPadding;
}

void write_lines(int thread, void* handle) {
    for (int n = 0; n < kLinesPerThread; ++n) {
        const std::string text = text_of(thread, n);
        if (n % 2 == 0) {
            velmw_gen_fault(thread, "writer", "log.cc", n, text.c_str());
        } else {
            log_debug(handle, "%s", text.c_str());
        }
    }
}

std::string expected_line(int thread, int n) {
    const std::string text = text_of(thread, n);
    if (n % 2 == 0) {
        return "fault: log.cc:" + std::to_string(n) + ": writer: " + text + " (code " +
               std::to_string(thread) + ")";
    }
    return "debug: " + text;
}

TEST(LogConcurrency, EveryLineArrivesWhole) {
    void* handle = get_config_vald_log_handle();
    CapturedLog log;
    std::vector<std::thread> writers;
    for (int t = 0; t < kThreads; ++t) {
        writers.emplace_back(write_lines, t, handle);
    }
    for (std::thread& writer : writers) {
        writer.join();
    }

    std::multiset<std::string> expected;
    for (int t = 0; t < kThreads; ++t) {
        for (int n = 0; n < kLinesPerThread; ++n) {
            expected.insert(expected_line(t, n));
        }
    }
    const std::vector<std::string> lines = log.Lines();
    const std::multiset<std::string> written(lines.begin(), lines.end());
    std::vector<std::string> damaged;
    std::set_difference(written.begin(), written.end(), expected.begin(), expected.end(),
                        std::back_inserter(damaged));
    EXPECT_EQ(written.size(), expected.size());
    ASSERT_TRUE(damaged.empty()) << damaged.size() << " damaged lines, the first begins "
                                 << damaged.front().substr(0, 80);
}

}  // namespace
