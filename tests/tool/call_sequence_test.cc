// The order of calls into the plug-in, which the child follows and from
// which the parent tells where a child died.
#include <gtest/gtest.h>

#include "call_record.h"

namespace ipapp_validate {
namespace {

constexpr Stage kName = Stage::get_validation_point;
constexpr Stage kInit = Stage::lib_init;
constexpr Stage kValidate = Stage::validate;
constexpr Stage kFinish = Stage::lib_finish;
constexpr int kThrew = 99;  // a result that stands for an exception

struct Sequence {
    size_t planned;
    bool keep_going;
    std::vector<std::tuple<Stage, uint32_t, int>> done;  // stage, index, result
    std::optional<std::pair<Stage, uint32_t>> next;
};

const Sequence kSequences[] = {
    {2, false, {{kName, 0, -1}}, std::nullopt},
    {2, false, {{kName, 0, kThrew}}, std::nullopt},
    {0, false, {{kName, 0, 0}, {kInit, 0, 0}}, {{kFinish, 0}}},
    {2, false, {{kName, 0, 0}, {kInit, 0, -1}}, std::nullopt},
    {3, false, {{kName, 0, 0}, {kInit, 0, 0}, {kValidate, 0, 0}}, {{kValidate, 1}}},
    {3, false, {{kName, 0, 0}, {kInit, 0, 0}, {kValidate, 0, -1}}, {{kFinish, 0}}},
    {3, false, {{kName, 0, 0}, {kInit, 0, 0}, {kValidate, 0, kThrew}}, {{kFinish, 0}}},
    {3, true, {{kName, 0, 0}, {kInit, 0, 0}, {kValidate, 1, kThrew}}, {{kValidate, 2}}},
    {2, true, {{kName, 0, 0}, {kInit, 0, 0}, {kValidate, 1, -1}}, {{kFinish, 0}}},
    {1, false, {{kName, 0, 0}, {kInit, 0, 0}, {kValidate, 0, 0}, {kFinish, 0, -1}}, std::nullopt},
};

TEST(CallSequence, FollowingCall) {
    for (const Sequence& sequence : kSequences) {
        std::vector<CallRecord> done;
        for (const auto& [stage, index, result] : sequence.done) {
            CallRecord record;
            record.stage = stage;
            record.index = index;
            record.ending = result == kThrew ? Ending::exception : Ending::returned;
            record.result = result == kThrew ? 0 : result;
            done.push_back(record);
        }
        SCOPED_TRACE(testing::Message()
                     << "after " << done.size() << " calls of " << sequence.planned);
        const std::optional<NextCall> next =
            FollowingCall(done, sequence.planned, sequence.keep_going);
        ASSERT_EQ(next.has_value(), sequence.next.has_value());
        if (next) {
            EXPECT_EQ(next->stage, sequence.next->first);
            EXPECT_EQ(next->index, sequence.next->second);
        }
    }
}

}  // namespace
}  // namespace ipapp_validate
