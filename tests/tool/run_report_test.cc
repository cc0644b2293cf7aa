// From what the child reported and how it ended to the verdict of each call
// and of the run: where a child died, and what the summary says.
#include <gtest/gtest.h>

#include "record_codec.h"
#include "run_report.h"

namespace ipapp_validate {
namespace {

const std::vector<CallLabel> kPlanned = {
    {"point_a", "/config/interface/l3{1}"},
    {"point_b", "/config/interface/l3{2}"},
    {"point_c", "/config/interface/l3{3}"},
};

CallRecord Returned(Stage stage, uint32_t index, int32_t result, std::string text = "") {
    CallRecord record;
    record.stage = stage;
    record.index = index;
    record.result = result;
    record.text = std::move(text);
    record.nanoseconds = 1000;
    return record;
}

const CallRecord kName = Returned(Stage::get_validation_point, 0, 0, "ip_app_validation");
const CallRecord kInit = Returned(Stage::lib_init, 0, 0);
const CallRecord kFinish = Returned(Stage::lib_finish, 0, 0);

struct ExpectedCall {
    Stage stage;
    std::string point;
    Verdict verdict;
    std::string text;  // the refusal text, or the crash's cause and detail
};

struct Outcome {
    const char* name;
    std::vector<CallRecord> records;
    std::string torn_tail;  // bytes of a record cut short
    ChildEnd end;
    std::vector<std::string> output;
    bool keep_going;
    Verdict verdict;
    std::vector<ExpectedCall> calls;
    std::string summary;
};

void PrintTo(const Outcome& outcome, std::ostream* out) {
    *out << outcome.name;
}

class RunReportTest : public testing::TestWithParam<Outcome> {};

TEST_P(RunReportTest, Interprets) {
    const Outcome& outcome = GetParam();
    ChildRun child;
    for (const CallRecord& record : outcome.records) {
        child.records += EncodeRecord(record);
    }
    child.records += outcome.torn_tail;
    child.end = outcome.end;

    const RunReport report = MakeRunReport(child, outcome.output, kPlanned, outcome.keep_going);

    EXPECT_EQ(report.verdict, outcome.verdict);
    EXPECT_EQ(report.Summary(), outcome.summary);
    EXPECT_EQ(report.plugin_nanoseconds, 1000 * outcome.records.size());
    ASSERT_EQ(report.calls.size(), outcome.calls.size());
    for (size_t i = 0; i < outcome.calls.size(); ++i) {
        const CallReport& call = report.calls[i];
        const ExpectedCall& expected = outcome.calls[i];
        EXPECT_EQ(call.stage, expected.stage) << i;
        EXPECT_EQ(call.point, expected.point) << i;
        EXPECT_EQ(call.verdict, expected.verdict) << i;
        const std::string text =
            call.crash ? call.crash->cause + "|" + call.crash->detail : call.text;
        EXPECT_EQ(text, expected.text) << i;
    }
}

const std::string kCut = EncodeRecord(Returned(Stage::validate, 1, 0)).substr(0, 7);

INSTANTIATE_TEST_SUITE_P(
    Tool, RunReportTest,
    testing::Values(
        Outcome{"first_refusal_ends_the_run",
                {kName, kInit, Returned(Stage::validate, 0, -1, "no"), kFinish},
                "",
                {false, 0},
                {},
                false,
                Verdict::refused,
                {{Stage::validate, "point_a", Verdict::refused, "no"}},
                "refused: 1 of 3 validation calls refused; stopped at the first refusal, 2 "
                "not run"},
        Outcome{"signal_in_a_validate_call",
                {kName, kInit, Returned(Stage::validate, 0, 0)},
                "",
                {true, 6},
                {"prog: src/lib/x:1: f: Assertion `e' failed.", "second line"},
                false,
                Verdict::crashed,
                {{Stage::validate, "point_a", Verdict::accepted, ""},
                 {Stage::validate, "point_b", Verdict::crashed,
                  "killed by signal 6 (Aborted)|prog: src/lib/x:1: f: Assertion `e' failed.\n"
                  "second line"}},
                "plug-in crashed: 1 of 3 validation calls crashed, 0 refused, 1 not run"},
        Outcome{"death_while_writing_a_record",
                {kName, kInit, Returned(Stage::validate, 0, -1, "no")},
                kCut,
                {false, 0},
                {},
                true,
                Verdict::crashed,
                {{Stage::validate, "point_a", Verdict::refused, "no"},
                 {Stage::validate, "point_b", Verdict::crashed, "exited with status 0|"}},
                "plug-in crashed: 1 of 3 validation calls crashed, 1 refused, 1 not run"},
        Outcome{"death_in_lib_finish",
                {kName, kInit, Returned(Stage::validate, 0, 0), Returned(Stage::validate, 1, 0),
                 Returned(Stage::validate, 2, 0)},
                "",
                {true, 11},
                {},
                false,
                Verdict::crashed,
                {{Stage::validate, "point_a", Verdict::accepted, ""},
                 {Stage::validate, "point_b", Verdict::accepted, ""},
                 {Stage::validate, "point_c", Verdict::accepted, ""},
                 {Stage::lib_finish, "", Verdict::crashed,
                  "killed by signal 11 (Segmentation fault)|"}},
                "plug-in crashed in lib_finish; 0 of 3 validation calls refused"},
        Outcome{"no_records_at_all",
                {},
                "",
                {false, 125},
                {"ipapp-validate: the plug-in's process failed"},
                false,
                Verdict::crashed,
                {{Stage::get_validation_point, "", Verdict::crashed,
                  "exited with status 125|ipapp-validate: the plug-in's process failed"}},
                "plug-in crashed in get_validation_point; 0 of 3 validation calls refused, 3 "
                "not run"}),
    [](const testing::TestParamInfo<Outcome>& info) { return info.param.name; });

}  // namespace
}  // namespace ipapp_validate
