// The debug log's handle is fetched from the host once per process. This
// executable stands in for the host's two log functions, so it can count the
// fetches, make the first one fail or give no handle, and see what is written.
#include <gtest/gtest.h>
#include <velmw_log.h>

#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <vector>

#include "ip_app_valid/validate_logger.h"

namespace {

int handle_fetches = 0;
bool host_has_no_handle = false;
char host_log;
std::vector<std::string> lines;

}  // namespace

velmw_log_handle_t get_config_vald_log_handle(void) {
    if (++handle_fetches == 1 && !host_has_no_handle) {
        throw std::runtime_error("log not ready");
    }
    return host_has_no_handle ? nullptr : &host_log;
}

void velmw_vlog_debug(velmw_log_handle_t handle, const char* format, va_list args) {
    char line[256];
    std::vsnprintf(line, sizeof line, format, args);
    lines.push_back(std::string(handle == &host_log ? "" : "wrong handle: ") + line);
}

namespace {

using ip_application::config_valid::ValidateLogger;

TEST(ValidateLogger, FetchesTheHandleOnceRetryingAFailedFetch) {
    EXPECT_THROW(ValidateLogger::Log("lost %u", 1u), std::runtime_error);
    EXPECT_TRUE(lines.empty());
    ValidateLogger::Log("Failed to get process ID from compound ID %u!", 7u);
    ValidateLogger::Log("%s%%d", "100");
    EXPECT_EQ(handle_fetches, 2);
    EXPECT_EQ(lines,
              (std::vector<std::string>{"Failed to get process ID from compound ID 7!", "100%d"}));
}

TEST(ValidateLoggerDeathTest, WithoutAHandleWritesNothing) {
    // A process of its own: the handle it fetches is kept for the process.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            host_has_no_handle = true;
            ValidateLogger::Log("Failed to get VRF name from compound ID %u!", 1u);
            ValidateLogger::Log("Failed to get VRF name from compound ID %u!", 2u);
            std::exit(lines.empty() && handle_fetches == 1 ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

}  // namespace
