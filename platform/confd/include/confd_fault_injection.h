/*
 * Fault injection for tests: make a libconfd call fail on a given path, so
 * that the failure branches of its callers can be exercised against a real
 * datastore. Inert until a test registers a fault; reset() between tests.
 *
 * Calls are named as in the API ("maapi_get_elem", "maapi_exists",
 * "maapi_get_u_int32_elem", "maapi_init_cursor", "maapi_get_next",
 * "cdb_get_int32", ...). A typed getter is matched by its own name only, so
 * failing "maapi_get_elem" leaves "maapi_get_int32_elem" working. Failing a
 * read but not "maapi_exists" gives "the node exists but cannot be read".
 *
 * Paths are compared after normalisation: module prefixes and the blanks
 * around keys do not matter ("/config/interface/ipapp:l3{ 5 }/vrf" matches
 * "/config/interface/l3{5}/vrf"). For maapi_get_next the path is the
 * cursor's list path; for maapi_xpath_eval_expr the context path.
 */
#ifndef CONFD_FAULT_INJECTION_H
#define CONFD_FAULT_INJECTION_H

#include <string>

namespace confdstore::fault_injection {

// From now on `call` on `path` (every path when empty) returns CONFD_ERR
// with confd_errno set to `confd_error`.
void fail(const std::string& call, const std::string& path, int confd_error);

// Removes every registered fault and clears the hit count.
void reset();

// How many calls failed because of a registered fault since the last reset.
int hits();

}  // namespace confdstore::fault_injection

#endif
