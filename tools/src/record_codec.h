// The byte form of call records in the child process's record file: each
// record is its body's length (4 bytes) and the body, so a record cut short
// by the child's death is recognised as such.
#ifndef IPAPP_VALIDATE_RECORD_CODEC_H
#define IPAPP_VALIDATE_RECORD_CODEC_H

#include <string>
#include <string_view>
#include <vector>

#include "call_record.h"

namespace ipapp_validate {

std::string EncodeRecord(const CallRecord& record);

struct DecodedRecords {
    std::vector<CallRecord> records;
    // Bytes after the last whole record: the child died while writing, or
    // wrote something that is no record.
    bool torn = false;
};

DecodedRecords DecodeRecords(std::string_view bytes);

}  // namespace ipapp_validate

#endif
