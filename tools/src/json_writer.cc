#include "json_writer.h"

#include <cmath>
#include <cstdio>

#include "utf8.h"

namespace ipapp_validate {
namespace {

constexpr const char* kReplacementCharacter = "\xEF\xBF\xBD";

void AppendEscapedAscii(std::string& out, char c) {
    switch (c) {
        case '"':
            out += "\\\"";
            return;
        case '\\':
            out += "\\\\";
            return;
        case '\b':
            out += "\\b";
            return;
        case '\f':
            out += "\\f";
            return;
        case '\n':
            out += "\\n";
            return;
        case '\r':
            out += "\\r";
            return;
        case '\t':
            out += "\\t";
            return;
        default:
            break;
    }
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) {
        char escaped[8];
        std::snprintf(escaped, sizeof escaped, "\\u%04x", static_cast<unsigned char>(c));
        out += escaped;
        return;
    }
    out += c;
}

}  // namespace

std::string JsonQuoted(std::string_view text) {
    std::string out;
    out.reserve(text.size() + 2);
    out += '"';
    for (size_t at = 0; at < text.size();) {
        const size_t plain = PlainAsciiRunLength(text, at, "\"\\");
        if (plain != 0) {
            out.append(text.substr(at, plain));
            at += plain;
            continue;
        }
        if (static_cast<unsigned char>(text[at]) < 0x80) {
            AppendEscapedAscii(out, text[at]);
            ++at;
            continue;
        }
        const size_t length = Utf8SequenceLength(text, at);
        if (length == 0) {
            out += kReplacementCharacter;
            ++at;
            continue;
        }
        out.append(text.substr(at, length));
        at += length;
    }
    out += '"';
    return out;
}

void JsonWriter::NewLine() {
    out_ << '\n' << std::string(levels_.size() * 2, ' ');
}

void JsonWriter::BeforeValue() {
    if (after_key_) {
        after_key_ = false;
        return;
    }
    if (levels_.empty()) {
        return;
    }
    if (!levels_.back().empty) {
        out_ << ',';
    }
    levels_.back().empty = false;
    NewLine();
}

void JsonWriter::Open(char bracket) {
    BeforeValue();
    out_ << bracket;
    levels_.push_back(Level{});
}

void JsonWriter::Close(char bracket) {
    const bool empty = levels_.back().empty;
    levels_.pop_back();
    if (!empty) {
        NewLine();
    }
    out_ << bracket;
    if (levels_.empty()) {
        out_ << '\n';
    }
}

void JsonWriter::BeginObject() {
    Open('{');
}

void JsonWriter::EndObject() {
    Close('}');
}

void JsonWriter::BeginArray() {
    Open('[');
}

void JsonWriter::EndArray() {
    Close(']');
}

void JsonWriter::Key(std::string_view name) {
    BeforeValue();
    out_ << JsonQuoted(name) << ": ";
    after_key_ = true;
}

void JsonWriter::String(std::string_view text) {
    BeforeValue();
    out_ << JsonQuoted(text);
}

void JsonWriter::StringMember(std::string_view name, std::string_view text) {
    Key(name);
    String(text);
}

void JsonWriter::IntegerMember(std::string_view name, int64_t number) {
    Key(name);
    Integer(number);
}

void JsonWriter::Integer(int64_t number) {
    BeforeValue();
    out_ << number;
}

void JsonWriter::Decimal(double number) {
    BeforeValue();
    if (!std::isfinite(number)) {
        out_ << "null";
        return;
    }
    char text[32];
    std::snprintf(text, sizeof text, "%.3f", number);
    out_ << text;
}

void JsonWriter::Bool(bool value) {
    BeforeValue();
    out_ << (value ? "true" : "false");
}

void JsonWriter::Null() {
    BeforeValue();
    out_ << "null";
}

}  // namespace ipapp_validate
