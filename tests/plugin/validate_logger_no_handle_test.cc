// Without a log handle from the host the debug log writes nothing and does
// not fail. This executable stands in for the host's two log functions.
#include <gtest/gtest.h>
#include <velmw_log.h>

#include "ip_app_valid/validate_logger.h"

namespace {

int handle_fetches = 0;
int lines_written = 0;

}  // namespace

velmw_log_handle_t get_config_vald_log_handle(void) {
    ++handle_fetches;
    return nullptr;
}

void velmw_vlog_debug(velmw_log_handle_t, const char*, va_list) {
    ++lines_written;
}

namespace {

TEST(ValidateLogger, WithoutAHandleWritesNothing) {
    for (unsigned i = 0; i < 3; ++i) {
        ip_application::config_valid::ValidateLogger::Log(
            "Failed to get VRF name from compound ID %u!", i);
    }
    EXPECT_EQ(lines_written, 0);
    EXPECT_EQ(handle_fetches, 1);
}

}  // namespace
