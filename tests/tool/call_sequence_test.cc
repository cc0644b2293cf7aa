// The order of calls into the plug-in, which the child follows and from
// which the parent tells where a child died.
#include <gtest/gtest.h>

#include "call_record.h"

namespace ipapp_validate {
namespace {

struct Sequence {
    const char* name;
    size_t planned;
    bool keep_going;
    // Each recorded call: stage, index, result; a result of 99 stands for an
    // exception.
    std::vector<std::tuple<Stage, uint32_t, int>> done;
    std::optional<std::pair<Stage, uint32_t>> next;
};

void PrintTo(const Sequence& sequence, std::ostream* out) {
    *out << sequence.name;
}

class CallSequenceTest : public testing::TestWithParam<Sequence> {};

TEST_P(CallSequenceTest, FollowingCall) {
    const Sequence& sequence = GetParam();
    std::vector<CallRecord> done;
    for (const auto& [stage, index, result] : sequence.done) {
        CallRecord record;
        record.stage = stage;
        record.index = index;
        record.ending = result == 99 ? Ending::exception : Ending::returned;
        record.result = result == 99 ? 0 : result;
        done.push_back(record);
    }
    const std::optional<NextCall> next = FollowingCall(done, sequence.planned, sequence.keep_going);
    ASSERT_EQ(next.has_value(), sequence.next.has_value());
    if (next) {
        EXPECT_EQ(next->stage, sequence.next->first);
        EXPECT_EQ(next->index, sequence.next->second);
    }
}

constexpr Stage kName = Stage::get_validation_point;
constexpr Stage kInit = Stage::lib_init;
constexpr Stage kValidate = Stage::validate;
constexpr Stage kFinish = Stage::lib_finish;

INSTANTIATE_TEST_SUITE_P(
    Tool, CallSequenceTest,
    testing::Values(
        Sequence{"starts_with_the_name", 2, false, {}, {{kName, 0}}},
        Sequence{"no_init_after_a_failed_name", 2, false, {{kName, 0, -1}}, std::nullopt},
        Sequence{"no_init_after_a_throwing_name", 2, false, {{kName, 0, 99}}, std::nullopt},
        Sequence{"finish_right_after_init_when_nothing_fired",
                 0,
                 false,
                 {{kName, 0, 0}, {kInit, 0, 0}},
                 {{kFinish, 0}}},
        Sequence{"no_finish_after_a_failed_init",
                 2,
                 false,
                 {{kName, 0, 0}, {kInit, 0, -1}},
                 std::nullopt},
        Sequence{"finish_after_a_refusal",
                 3,
                 false,
                 {{kName, 0, 0}, {kInit, 0, 0}, {kValidate, 0, -1}},
                 {{kFinish, 0}}},
        Sequence{"finish_after_an_exception",
                 3,
                 false,
                 {{kName, 0, 0}, {kInit, 0, 0}, {kValidate, 0, 99}},
                 {{kFinish, 0}}},
        Sequence{"keep_going_after_an_exception",
                 3,
                 true,
                 {{kName, 0, 0}, {kInit, 0, 0}, {kValidate, 1, 99}},
                 {{kValidate, 2}}},
        Sequence{"finish_after_the_last_validate",
                 2,
                 true,
                 {{kName, 0, 0}, {kInit, 0, 0}, {kValidate, 0, 0}, {kValidate, 1, -1}},
                 {{kFinish, 0}}},
        Sequence{"over_after_finish",
                 1,
                 false,
                 {{kName, 0, 0}, {kInit, 0, 0}, {kValidate, 0, 0}, {kFinish, 0, -1}},
                 std::nullopt}),
    [](const testing::TestParamInfo<Sequence>& info) { return info.param.name; });

}  // namespace
}  // namespace ipapp_validate
