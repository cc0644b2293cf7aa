#include "call_trace.h"

#include <atomic>

#include "value_text.h"

namespace confd::detail {
namespace {

std::atomic<confdstore::trace::Sink> sink{nullptr};
thread_local CallTrace* in_progress = nullptr;

const char* errno_name(int code) {
    switch (code) {
        case CONFD_ERR_NOEXISTS:
            return "CONFD_ERR_NOEXISTS";
        case CONFD_ERR_ALREADY_EXISTS:
            return "CONFD_ERR_ALREADY_EXISTS";
        case CONFD_ERR_ACCESS_DENIED:
            return "CONFD_ERR_ACCESS_DENIED";
        case CONFD_ERR_BADTYPE:
            return "CONFD_ERR_BADTYPE";
        case CONFD_ERR_BADPATH:
            return "CONFD_ERR_BADPATH";
        case CONFD_ERR_BADSTATE:
            return "CONFD_ERR_BADSTATE";
        case CONFD_ERR_INTERNAL:
            return "CONFD_ERR_INTERNAL";
        case CONFD_ERR_EXTERNAL:
            return "CONFD_ERR_EXTERNAL";
        case CONFD_ERR_MALLOC:
            return "CONFD_ERR_MALLOC";
        case CONFD_ERR_PROTOUSAGE:
            return "CONFD_ERR_PROTOUSAGE";
        case CONFD_ERR_NOSESSION:
            return "CONFD_ERR_NOSESSION";
        case CONFD_ERR_OS:
            return "CONFD_ERR_OS";
        case CONFD_ERR_UNAVAILABLE:
            return "CONFD_ERR_UNAVAILABLE";
        case CONFD_ERR_EOF:
            return "CONFD_ERR_EOF";
        case CONFD_ERR_XPATH:
            return "CONFD_ERR_XPATH";
        case CONFD_ERR_NOTRANS:
            return "CONFD_ERR_NOTRANS";
        default:
            return "error";
    }
}

std::string error_outcome() {
    return std::string("error ") + errno_name(confd_errno) + " (" + std::to_string(confd_errno) +
           "): " + confd_lasterr();
}

}  // namespace

CallTrace::CallTrace(const char* function, const char* path_template)
    : sink_(sink.load(std::memory_order_acquire)), function_(function) {
    if (sink_ != nullptr) {
        enclosing_ = in_progress;
        in_progress = this;
        path_ = path_template != nullptr ? path_template : "";
    }
}

CallTrace::~CallTrace() {
    if (sink_ != nullptr) {
        in_progress = enclosing_;
    }
}

CallTrace* CallTrace::current() {
    return in_progress;
}

void CallTrace::set_path(std::string path) {
    path_ = std::move(path);
}

void CallTrace::set_argument(std::string argument) {
    argument_ = std::move(argument);
}

void CallTrace::set_outcome(std::string outcome) {
    outcome_ = std::move(outcome);
}

int CallTrace::returned(int result) {
    if (sink_ == nullptr) {
        return result;
    }
    if (result == CONFD_ERR) {
        report(error_outcome(), true);
    } else if (!outcome_.empty()) {
        report(outcome_, true);
    } else {
        report(result == CONFD_EOF ? "eof" : "ok", true);
    }
    return result;
}

int CallTrace::returned_number(int result) {
    if (sink_ != nullptr) {
        report(result == CONFD_ERR ? error_outcome() : std::to_string(result), true);
    }
    return result;
}

void CallTrace::handed(const std::string& change) const {
    if (sink_ != nullptr) {
        report(change, false);
    }
}

void CallTrace::report(const std::string& outcome, bool returned) const {
    sink_(confdstore::trace::Call{function_, path_, argument_, outcome, returned});
}

std::string traced_value(const confd_value_t& value) {
    const std::string text = value_text(value);
    return value.type == C_BUF || value.type == C_STR ? '"' + text + '"' : text;
}

}  // namespace confd::detail

namespace confdstore::trace {

void set_sink(Sink new_sink) {
    confd::detail::sink.store(new_sink, std::memory_order_release);
}

}  // namespace confdstore::trace
