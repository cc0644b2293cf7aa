/*
 * Tracing of the ConfD API calls a program makes, for plug-in authors: each
 * maapi_*, cdb_* and confd_* call that reads, walks, evaluates, changes a
 * session or can fail is reported to a sink as it returns, whether or not
 * its caller looks at the result. Off until a sink is set; while off, a call
 * costs one atomic load more. Value helpers that cannot fail
 * (confd_pp_value, confd_free_value, ...) are not reported.
 */
#ifndef CONFD_TRACE_H
#define CONFD_TRACE_H

#include <string_view>

namespace confdstore::trace {

// One report. Texts are as the library has them: they may hold any byte
// the data holds, line breaks included.
struct Call {
    std::string_view function;  // "maapi_get_elem"
    // The path as expanded: no module prefixes, keys as text ("{a b}", a key
    // with a blank, brace or quote in double quotes); the template itself
    // when it cannot be expanded; empty for calls without a path.
    std::string_view path;
    std::string_view argument;  // maapi_xpath_eval_expr's expression
    // What the call returned: "error NAME (N): <confd_lasterr()>" for
    // CONFD_ERR; the value read (strings in double quotes); the number of
    // maapi_exists, *_num_instances and maapi_start_trans; a cursor's keys
    // ("{5}") or "end"; "ok" or "eof" otherwise. For a change handed to a
    // diff walk's iterator: the operation, the keypath and a set value.
    std::string_view outcome;
    bool returned = true;  // false: a change a diff walk hands to its iterator
};

using Sink = void (*)(const Call& call);

// From now on every reported call of any thread goes to sink, on the calling
// thread, before the call returns; nullptr turns tracing off. The sink must
// not call the API itself.
void set_sink(Sink sink);

}  // namespace confdstore::trace

#endif
