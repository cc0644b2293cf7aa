// What the child process reports about each call into the plug-in, and the
// order of those calls, which both sides of the run derive from the same
// rule.
#ifndef IPAPP_VALIDATE_CALL_RECORD_H
#define IPAPP_VALIDATE_CALL_RECORD_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace ipapp_validate {

// The plug-in's entry points, in the order a run calls them.
enum class Stage : uint8_t { get_validation_point, lib_init, validate, lib_finish };

const char* StageName(Stage stage);

enum class Ending : uint8_t { returned, exception };

struct CallRecord {
    Stage stage = Stage::get_validation_point;
    uint32_t index = 0;  // the planned call, for validate
    Ending ending = Ending::returned;
    int32_t result = 0;
    // The library name (get_validation_point), the transaction's error text
    // (validate), or the exception's message.
    std::string text;
    std::string exception_type;  // demangled
    uint64_t nanoseconds = 0;    // inside the plug-in
};

struct NextCall {
    Stage stage;
    uint32_t index;
};

// The call that follows the recorded ones, or nothing when the run is over.
// A failed get_validation_point or lib_init ends the run (there is no context
// to finish); a refusal or an exception out of validate ends the validate
// calls unless keep_going, and lib_finish still follows.
std::optional<NextCall> FollowingCall(const std::vector<CallRecord>& done, size_t planned_calls,
                                      bool keep_going);

}  // namespace ipapp_validate

#endif
