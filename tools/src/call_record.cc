#include "call_record.h"

namespace ipapp_validate {
namespace {

bool Succeeded(const CallRecord& record) {
    return record.ending == Ending::returned && record.result == 0;
}

std::optional<NextCall> FirstValidateOrFinish(size_t planned_calls) {
    if (planned_calls == 0) {
        return NextCall{Stage::lib_finish, 0};
    }
    return NextCall{Stage::validate, 0};
}

}  // namespace

const char* StageName(Stage stage) {
    switch (stage) {
        case Stage::get_validation_point:
            return "get_validation_point";
        case Stage::lib_init:
            return "lib_init";
        case Stage::validate:
            return "validate";
        case Stage::lib_finish:
            return "lib_finish";
    }
    return "?";
}

std::optional<NextCall> FollowingCall(const std::vector<CallRecord>& done, size_t planned_calls,
                                      bool keep_going) {
    if (done.empty()) {
        return NextCall{Stage::get_validation_point, 0};
    }
    const CallRecord& last = done.back();
    switch (last.stage) {
        case Stage::get_validation_point:
            if (!Succeeded(last)) {
                return std::nullopt;
            }
            return NextCall{Stage::lib_init, 0};
        case Stage::lib_init:
            if (!Succeeded(last)) {
                return std::nullopt;
            }
            return FirstValidateOrFinish(planned_calls);
        case Stage::validate:
            if ((Succeeded(last) || keep_going) && last.index + 1 < planned_calls) {
                return NextCall{Stage::validate, last.index + 1};
            }
            return NextCall{Stage::lib_finish, 0};
        case Stage::lib_finish:
            return std::nullopt;
    }
    return std::nullopt;
}

}  // namespace ipapp_validate
