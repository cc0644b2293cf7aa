/* Helpers shared by the datastore tests. */
#ifndef CONFD_TESTS_TEST_UTIL_H
#define CONFD_TESTS_TEST_UTIL_H

#include <string>
#include <vector>

#include "confd.h"
#include "confd_datastore.h"
#include "ipapp_test_support/confd_fixture.h"

namespace confd_test {

inline std::string pp(const confd_value_t& value) {
    char text[512];
    confd_pp_value(text, sizeof text, &value);
    return text;
}

inline std::string pp(const confd_hkeypath_t& keypath) {
    char text[1024];
    confd_pp_kpath(text, sizeof text, &keypath);
    return text;
}

// A call's result as "<result>", or "error <confd_errno>: <confd_lasterr()>"
// for CONFD_ERR, so that a result, its errno and its text are checked in one
// comparison.
inline std::string outcome(int result) {
    return result == CONFD_ERR ? "error " + std::to_string(confd_errno) + ": " + confd_lasterr()
                               : std::to_string(result);
}

inline std::string error(int confd_error, const std::string& text) {
    return "error " + std::to_string(confd_error) + ": " + text;
}

// The keys of every entry a cursor delivers, printed and joined by blanks.
inline std::vector<std::string> cursor_keys(int sock, int th, const char* path) {
    std::vector<std::string> entries;
    maapi_cursor mc;
    maapi_init_cursor(sock, th, &mc, "%s", path);
    for (maapi_get_next(&mc); mc.n != 0; maapi_get_next(&mc)) {
        std::string entry;
        for (int i = 0; i < mc.n; ++i) {
            entry += (i == 0 ? "" : " ") + pp(mc.keys[i]);
        }
        entries.push_back(entry);
    }
    maapi_destroy_cursor(&mc);
    return entries;
}

}  // namespace confd_test

#endif
