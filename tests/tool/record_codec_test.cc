// Call records survive the record file whole, and a record cut anywhere is
// seen as cut, with the whole records before it kept.
#include <gtest/gtest.h>

#include <tuple>

#include "record_codec.h"

namespace ipapp_validate {
namespace {

CallRecord Sample(Stage stage, uint32_t index, const std::string& text) {
    CallRecord record;
    record.stage = stage;
    record.index = index;
    record.ending = Ending::exception;
    record.result = -7;
    record.text = text;
    record.exception_type = "std::out_of_range";
    record.nanoseconds = 0x0123456789abcdefULL;
    return record;
}

auto Fields(const CallRecord& r) {
    return std::make_tuple(r.stage, r.index, r.ending, r.result, r.text, r.exception_type,
                           r.nanoseconds);
}

TEST(RecordCodec, RecordsComeBackWhole) {
    const std::vector<CallRecord> records = {
        Sample(Stage::get_validation_point, 0, "ip_app_validation"),
        Sample(Stage::validate, 70000, std::string("with\0zero and\nnewline", 21)),
        Sample(Stage::lib_finish, 0, ""),
    };
    std::string bytes;
    for (const CallRecord& record : records) {
        bytes += EncodeRecord(record);
    }
    const DecodedRecords decoded = DecodeRecords(bytes);
    EXPECT_FALSE(decoded.torn);
    ASSERT_EQ(decoded.records.size(), records.size());
    for (size_t i = 0; i < records.size(); ++i) {
        EXPECT_EQ(Fields(decoded.records[i]), Fields(records[i]));
    }
}

TEST(RecordCodec, ACutAnywhereIsTorn) {
    const std::string first = EncodeRecord(Sample(Stage::validate, 1, "first"));
    const std::string second = EncodeRecord(Sample(Stage::validate, 2, "second"));
    for (size_t cut = 1; cut < second.size(); ++cut) {
        const DecodedRecords decoded = DecodeRecords(first + second.substr(0, cut));
        EXPECT_TRUE(decoded.torn) << "cut at " << cut;
        ASSERT_EQ(decoded.records.size(), 1u) << "cut at " << cut;
        EXPECT_EQ(decoded.records[0].text, "first");
    }
}

TEST(RecordCodec, ABodyThatIsNoRecordIsTorn) {
    std::string bytes = EncodeRecord(Sample(Stage::validate, 1, "text"));
    bytes[4] = 9;  // no such stage
    EXPECT_TRUE(DecodeRecords(bytes).torn);
    const std::string padded_length("\x01\x00\x00\x00\x00", 5);  // a one-byte body
    EXPECT_TRUE(DecodeRecords(padded_length).torn);
}

}  // namespace
}  // namespace ipapp_validate
