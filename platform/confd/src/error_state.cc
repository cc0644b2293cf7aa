#include "error_state.h"

#include <cstdarg>
#include <cstdio>
#include <string>

#include "confd_lib.h"

namespace confd::detail {
namespace {

thread_local int errno_value = 0;
thread_local std::string last_error;

}  // namespace

int fail(int code, std::string message) {
    errno_value = code;
    last_error = std::move(message);
    return CONFD_ERR;
}

int failf(int code, const char* fmt, ...) {
    char text[512];
    va_list args;
    va_start(args, fmt);
    std::vsnprintf(text, sizeof text, fmt, args);
    va_end(args);
    return fail(code, text);
}

int null_result() {
    return fail(CONFD_ERR_PROTOUSAGE, "null result pointer");
}

int bad_type(int expected, int found) {
    return failf(CONFD_ERR_BADTYPE, "value of type %d, not of type %d", found, expected);
}

void clear_last_error() {
    last_error.clear();
}

}  // namespace confd::detail

extern "C" {

int* confd_errno_location(void) {
    return &confd::detail::errno_value;
}

char* confd_lasterr(void) {
    return confd::detail::last_error.data();
}

}  // extern "C"
