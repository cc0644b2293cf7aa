/*
 * The calling thread's error state (confd_errno, confd_lasterr) and the
 * helpers every call uses to fail with a code and a message.
 */
#ifndef CONFD_SRC_ERROR_STATE_H
#define CONFD_SRC_ERROR_STATE_H

#include <string>

namespace confd::detail {

// Sets confd_errno and the last error text; returns CONFD_ERR.
int fail(int code, std::string message);

// printf-style variant of fail().
int failf(int code, const char* fmt, ...) __attribute__((format(printf, 2, 3)));

// Failures common to many calls: CONFD_ERR_PROTOUSAGE for a null result
// pointer, CONFD_ERR_BADTYPE for a value of another type than asked for.
int null_result();
int bad_type(int expected, int found);

// Clears the last error text (confd_errno keeps its value, as in ConfD).
void clear_last_error();

}  // namespace confd::detail

#endif
