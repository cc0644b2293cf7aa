// Layout, switches and robustness of the fault report and debug log.
#include <gtest/gtest.h>

#include <string>

#include "captured_log.h"
#include "velmw_log.h"

namespace {

struct FaultCase {
    const char* what;
    int code;
    const char* function;
    const char* file;
    int line;
    const char* text;
    std::string expected;
};

TEST(FaultReport, IsOneLineWithItsOrigin) {
    const FaultCase cases[] = {
        {"plain", 0, "ReadConfig", "src/lib/config", 133, "Unspecified IPv4 address for key '5'",
         "fault: src/lib/config:133: ReadConfig: Unspecified IPv4 address for key '5' (code 0)\n"},
        {"negative code", -7, "f", "a.c", -1, "t", "fault: a.c:-1: f: t (code -7)\n"},
        {"null pieces", 3, nullptr, nullptr, 9, nullptr,
         "fault: (null):9: (null): (null) (code 3)\n"},
        {"empty text", 0, "f", "a.c", 1, "", "fault: a.c:1: f:  (code 0)\n"},
        {"percent kept", 0, "f", "a.c", 1, "50%s %d", "fault: a.c:1: f: 50%s %d (code 0)\n"},
        {"inner newlines escaped", 0, "f", "a.c", 1, "one\ntwo\r\n",
         "fault: a.c:1: f: one\\ntwo\\r (code 0)\n"},
        {"control characters escaped", 0, "f\x01", "a.c", 1,
         "a\tb\x1b"
         "c\x7f",
         "fault: a.c:1: f\\x01: a\tb\\x1bc\\x7f (code 0)\n"},
    };
    for (const FaultCase& c : cases) {
        CapturedLog log;
        velmw_gen_fault(c.code, c.function, c.file, c.line, c.text);
        EXPECT_EQ(log.Text(), c.expected) << c.what;
    }
}

TEST(FaultReport, KeepsALongTextWhole) {
    const std::string text(100000, 'x');
    CapturedLog log;
    velmw_gen_fault(0, "f", "a.c", 1, text.c_str());
    EXPECT_EQ(log.Text(), "fault: a.c:1: f: " + text + " (code 0)\n");
}

TEST(DebugLog, FormatsOneLine) {
    void* handle = get_config_vald_log_handle();
    ASSERT_NE(handle, nullptr);
    const std::string long_key(5000, 'k');
    CapturedLog log;
    log_debug(handle, "Failed to get VRF name from compound ID %u!", 65541u);
    log_debug(handle, "There is no path for '%s' and '%s'. Skipping validation ...", "a", "b");
    log_debug(handle, "key %s end", long_key.c_str());
    log_debug(handle, "trailing newline dropped\n");
    log_debug(handle, nullptr);
    EXPECT_EQ(log.Lines(), (std::vector<std::string>{
                               "debug: Failed to get VRF name from compound ID 65541!",
                               "debug: There is no path for 'a' and 'b'. Skipping validation ...",
                               "debug: key " + long_key + " end",
                               "debug: trailing newline dropped",
                               "debug: (null)",
                           }));
}

TEST(DebugLog, WritesNothingWithoutAValidHandle) {
    int foreign;
    CapturedLog log;
    log_debug(nullptr, "no handle");
    log_debug(&foreign, "not a handle of the host");
    EXPECT_EQ(log.Text(), "");
}

TEST(DebugLog, CanBeTurnedOff) {
    void* handle = get_config_vald_log_handle();
    CapturedLog log;
    velmw_log_set_debug_enabled(0);
    EXPECT_EQ(get_config_vald_log_handle(), nullptr);
    log_debug(handle, "kept handle, logging off");
    velmw_gen_fault(1, "f", "a.c", 2, "faults are still reported");
    velmw_log_set_debug_enabled(1);
    EXPECT_EQ(get_config_vald_log_handle(), handle);
    log_debug(handle, "on again");
    EXPECT_EQ(log.Lines(), (std::vector<std::string>{
                               "fault: a.c:2: f: faults are still reported (code 1)",
                               "debug: on again",
                           }));
}

TEST(LogStream, DefaultsToStandardError) {
    { CapturedLog log; }
    testing::internal::CaptureStderr();
    velmw_gen_fault(0, "f", "a.c", 1, "to stderr");
    log_debug(get_config_vald_log_handle(), "%d", 42);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "fault: a.c:1: f: to stderr (code 0)\ndebug: 42\n");
}

}  // namespace
