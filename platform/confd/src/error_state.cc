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

char* confd_strerror(int code) {
    struct Entry {
        int code;
        const char* text;
    };
    static const Entry entries[] = {
        {CONFD_ERR_NOEXISTS, "item does not exist"},
        {CONFD_ERR_ALREADY_EXISTS, "item already exists"},
        {CONFD_ERR_ACCESS_DENIED, "access denied"},
        {CONFD_ERR_BADTYPE, "bad type"},
        {CONFD_ERR_BADPATH, "bad path"},
        {CONFD_ERR_BADSTATE, "bad state"},
        {CONFD_ERR_INTERNAL, "internal error"},
        {CONFD_ERR_EXTERNAL, "external error"},
        {CONFD_ERR_MALLOC, "memory allocation failed"},
        {CONFD_ERR_PROTOUSAGE, "protocol usage error"},
        {CONFD_ERR_NOSESSION, "no session"},
        {CONFD_ERR_OS, "operating system error"},
        {CONFD_ERR_UNAVAILABLE, "unavailable"},
        {CONFD_ERR_EOF, "end of file"},
        {CONFD_ERR_XPATH, "XPath error"},
        {CONFD_ERR_NOTRANS, "no such transaction"},
    };
    for (const Entry& entry : entries) {
        if (entry.code == code) {
            return const_cast<char*>(entry.text);
        }
    }
    return const_cast<char*>("unknown error");
}

}  // extern "C"
