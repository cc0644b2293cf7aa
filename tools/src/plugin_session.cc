#include "plugin_session.h"

#include <cxxabi.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <exception>
#include <typeinfo>

#include "record_codec.h"
#include "trace_line.h"

namespace ipapp_validate {
namespace {

// The type of the exception being handled, as the source spells it.
std::string CurrentExceptionType() {
    const std::type_info* type = abi::__cxa_current_exception_type();
    if (type == nullptr) {
        return "unknown";
    }
    int status = 0;
    char* demangled = abi::__cxa_demangle(type->name(), nullptr, nullptr, &status);
    std::string name = status == 0 && demangled != nullptr ? demangled : type->name();
    std::free(demangled);
    return name;
}

std::string CurrentExceptionMessage() {
    try {
        throw;
    } catch (const std::exception& exception) {
        return exception.what();
    } catch (...) {
        return std::string();
    }
}

bool WriteAll(int fd, const std::string& bytes) {
    for (size_t written = 0; written < bytes.size();) {
        const ssize_t n = write(fd, bytes.data() + written, bytes.size() - written);
        if (n < 0 && errno == EINTR) {
            continue;
        }
        if (n <= 0) {
            return false;
        }
        written += static_cast<size_t>(n);
    }
    return true;
}

// The trace line of a call of validate: the keypath, the point and the new
// value handed over.
void TraceValidate(const PlannedCall& call) {
    char value[256];
    confd_pp_value(value, sizeof value, &call.new_value);
    WriteTraceLine({"validate", call.keypath.text(), call.point, value, false});
}

}  // namespace

bool PluginSession::Run(int record_fd) {
    // Only the last record decides what follows; earlier ones can go.
    std::vector<CallRecord> last;
    for (auto next = FollowingCall(last, plan_.size(), keep_going_); next;
         next = FollowingCall(last, plan_.size(), keep_going_)) {
        last.assign(1, Call(*next));
        if (!WriteAll(record_fd, EncodeRecord(last.back()))) {
            return false;
        }
    }
    return true;
}

CallRecord PluginSession::Call(const NextCall& next) {
    CallRecord record;
    record.stage = next.stage;
    record.index = next.index;
    const auto start = std::chrono::steady_clock::now();
    try {
        switch (next.stage) {
            case Stage::get_validation_point:
                record.result = GetValidationPoint(record);
                break;
            case Stage::lib_init:
                record.result = LibInit();
                break;
            case Stage::validate:
                record.result = Validate(next.index, record);
                break;
            case Stage::lib_finish:
                record.result = LibFinish();
                break;
        }
    } catch (...) {
        record.ending = Ending::exception;
        record.exception_type = CurrentExceptionType();
        record.text = CurrentExceptionMessage();
    }
    record.nanoseconds = static_cast<uint64_t>(std::chrono::duration_cast<std::chrono::nanoseconds>(
                                                   std::chrono::steady_clock::now() - start)
                                                   .count());
    return record;
}

int PluginSession::GetValidationPoint(CallRecord& record) {
    char name[256] = {};
    const int result = entry_points_.get_validation_point(name, sizeof name);
    name[sizeof name - 1] = '\0';
    library_name_ = name;
    record.text = library_name_;
    return result;
}

int PluginSession::LibInit() {
    const int result = entry_points_.lib_init(&context_);
    if (result == 0) {
        velconfd_set_lib_context(transaction_.host_state(), library_name_.c_str(), context_);
    }
    return result;
}

int PluginSession::Validate(uint32_t index, CallRecord& record) {
    PlannedCall call = plan_.Make(index);
    confd_trans_ctx& tctx = transaction_.context();
    confd_trans_clear_err(&tctx);
    tctx.vcb_opaque = call.point.data();
    // The plug-in gets copies: what it does to them cannot reach the
    // datastore's keypath and value.
    confd_hkeypath_t keypath = call.keypath.get();
    confd_value_t new_value = call.new_value;
    if (trace_) {
        TraceValidate(call);
    }
    const int result = entry_points_.validate(&tctx, &keypath, &new_value);
    record.text = tctx.error.str != nullptr ? tctx.error.str : "";
    return result;
}

int PluginSession::LibFinish() {
    const int result = entry_points_.lib_finish(&context_);
    velconfd_set_lib_context(transaction_.host_state(), library_name_.c_str(), nullptr);
    return result;
}

}  // namespace ipapp_validate
