/*
 * The library's side of tracing (confd_trace.h). A CallTrace stands for one
 * public call: it is made first thing in the call, names itself the call in
 * progress on its thread, and reports the call when it returns. The steps
 * calls share fill in what they learn, so no call formats its own report:
 * parse_request the expanded path, read_elem the value read.
 */
#ifndef CONFD_SRC_CALL_TRACE_H
#define CONFD_SRC_CALL_TRACE_H

#include <string>

#include "confd_lib.h"
#include "confd_trace.h"

namespace confd::detail {

class CallTrace {
  public:
    // path_template: the call's path as given, the path reported unless
    // parse_request expands it.
    explicit CallTrace(const char* function, const char* path_template = nullptr);
    ~CallTrace();
    CallTrace(const CallTrace&) = delete;
    CallTrace& operator=(const CallTrace&) = delete;

    // The call in progress on this thread while tracing is on, else nullptr.
    static CallTrace* current();

    // Whether the call is reported: what is worked out only for the report
    // is worked out only then.
    bool on() const { return sink_ != nullptr; }

    void set_path(std::string path);
    void set_argument(std::string argument);
    void set_outcome(std::string outcome);

    // Reports the call and returns result: CONFD_ERR as the error (confd_errno
    // and confd_lasterr()), else the outcome set, or "ok" / "eof".
    int returned(int result);
    // The same for calls whose result is a number (a count, a handle).
    int returned_number(int result);
    // Reports a change a diff walk hands to its iterator.
    void handed(const std::string& change) const;

  private:
    void report(const std::string& outcome, bool returned) const;

    confdstore::trace::Sink sink_;
    const char* function_;
    CallTrace* enclosing_ = nullptr;
    std::string path_;
    std::string argument_;
    std::string outcome_;
};

// A value as an outcome: value_text, strings in double quotes.
std::string traced_value(const confd_value_t& value);

}  // namespace confd::detail

#endif
