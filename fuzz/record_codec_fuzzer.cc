// The child's call records as the parent decodes them from the pipe: any
// bytes decode without fault, and the records decoded encode back to exactly
// the bytes they came from (the form has one spelling per record).
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "record_codec.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const ipapp_validate::DecodedRecords decoded = ipapp_validate::DecodeRecords(bytes);
    std::string encoded;
    for (const ipapp_validate::CallRecord& record : decoded.records) {
        encoded += ipapp_validate::EncodeRecord(record);
    }
    const bool whole =
        decoded.torn ? encoded.size() < bytes.size() : encoded.size() == bytes.size();
    if (!whole || bytes.substr(0, encoded.size()) != encoded) {
        std::abort();
    }
    return 0;
}
