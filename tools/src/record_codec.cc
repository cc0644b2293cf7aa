#include "record_codec.h"

#include <cstring>

namespace ipapp_validate {
namespace {

template <typename Number>
void Put(std::string& out, Number number) {
    char bytes[sizeof number];
    std::memcpy(bytes, &number, sizeof number);
    out.append(bytes, sizeof number);
}

void PutText(std::string& out, const std::string& text) {
    Put(out, static_cast<uint32_t>(text.size()));
    out += text;
}

// Reads the fields of one record body in order; any read past the end makes
// the body invalid.
class BodyReader {
  public:
    explicit BodyReader(std::string_view body) : body_(body) {}

    template <typename Number>
    Number Get() {
        Number number{};
        if (Take(sizeof number)) {
            std::memcpy(&number, body_.data() + at_ - sizeof number, sizeof number);
        }
        return number;
    }

    std::string GetText() {
        const auto length = Get<uint32_t>();
        if (!Take(length)) {
            return std::string();
        }
        return std::string(body_.substr(at_ - length, length));
    }

    // Every field was there and nothing is left over.
    bool Complete() const { return valid_ && at_ == body_.size(); }

  private:
    bool Take(size_t length) {
        if (!valid_ || body_.size() - at_ < length) {
            valid_ = false;
            return false;
        }
        at_ += length;
        return true;
    }

    std::string_view body_;
    size_t at_ = 0;
    bool valid_ = true;
};

bool KnownStage(uint8_t stage) {
    return stage <= static_cast<uint8_t>(Stage::lib_finish);
}

bool KnownEnding(uint8_t ending) {
    return ending <= static_cast<uint8_t>(Ending::exception);
}

}  // namespace

std::string EncodeRecord(const CallRecord& record) {
    std::string body;
    Put(body, static_cast<uint8_t>(record.stage));
    Put(body, record.index);
    Put(body, static_cast<uint8_t>(record.ending));
    Put(body, record.result);
    PutText(body, record.text);
    PutText(body, record.exception_type);
    Put(body, record.nanoseconds);
    std::string out;
    Put(out, static_cast<uint32_t>(body.size()));
    return out + body;
}

DecodedRecords DecodeRecords(std::string_view bytes) {
    DecodedRecords decoded;
    while (!bytes.empty()) {
        uint32_t length = 0;
        if (bytes.size() < sizeof length) {
            decoded.torn = true;
            break;
        }
        std::memcpy(&length, bytes.data(), sizeof length);
        if (bytes.size() - sizeof length < length) {
            decoded.torn = true;
            break;
        }
        BodyReader reader(bytes.substr(sizeof length, length));
        bytes.remove_prefix(sizeof length + length);
        CallRecord record;
        const auto stage = reader.Get<uint8_t>();
        record.index = reader.Get<uint32_t>();
        const auto ending = reader.Get<uint8_t>();
        record.result = reader.Get<int32_t>();
        record.text = reader.GetText();
        record.exception_type = reader.GetText();
        record.nanoseconds = reader.Get<uint64_t>();
        if (!reader.Complete() || !KnownStage(stage) || !KnownEnding(ending)) {
            decoded.torn = true;
            break;
        }
        record.stage = static_cast<Stage>(stage);
        record.ending = static_cast<Ending>(ending);
        decoded.records.push_back(std::move(record));
    }
    return decoded;
}

}  // namespace ipapp_validate
