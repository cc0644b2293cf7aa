#include "message_line.h"

#include <cstdio>

#include "utf8.h"

namespace ipapp_validate {
namespace {

std::string EscapedByte(unsigned char byte) {
    switch (byte) {
        case '\n':
            return "\\n";
        case '\r':
            return "\\r";
        case '\t':
            return "\\t";
        case '\\':
            return "\\\\";
        default:
            break;
    }
    char escaped[8];
    std::snprintf(escaped, sizeof escaped, "\\x%02X", byte);
    return escaped;
}

// Control characters and the escape character itself; the C1 controls
// U+0080..U+009F are C2 80..C2 9F in UTF-8. Line breaks and tabs stay when
// the text may span lines.
bool NeedsEscape(std::string_view character, bool keep_lines) {
    const auto first = static_cast<unsigned char>(character[0]);
    if (keep_lines && (first == '\n' || first == '\t')) {
        return false;
    }
    return first < 0x20 || first == 0x7F || first == '\\' ||
           (first == 0xC2 && static_cast<unsigned char>(character[1]) < 0xA0);
}

// At most max_bytes of escaped text, and "..." when more was left.
std::string Escaped(std::string_view text, size_t max_bytes, bool keep_lines = false) {
    std::string line;
    for (size_t at = 0; at < text.size();) {
        const size_t length = Utf8SequenceLength(text, at);
        const std::string_view character = text.substr(at, length == 0 ? 1 : length);
        std::string piece;
        if (length == 0 || NeedsEscape(character, keep_lines)) {
            for (char byte : character) {
                piece += EscapedByte(static_cast<unsigned char>(byte));
            }
        } else {
            piece = character;
        }
        if (line.size() + piece.size() > max_bytes) {
            return line + "...";
        }
        line += piece;
        at += character.size();
    }
    return line;
}

}  // namespace

std::string Printable(std::string_view text) {
    return Escaped(text, std::string::npos);
}

std::string PrintableLines(std::string_view text) {
    return Escaped(text, std::string::npos, true);
}

std::string MessageLine(std::string_view text) {
    return Escaped(text, kMaxMessageLineBytes);
}

}  // namespace ipapp_validate
