#include "message_line.h"

#include <algorithm>

#include "utf8.h"

namespace ipapp_validate {
namespace {

// The escape of one byte: \n, \r, \t, \\ or \xNN.
std::string_view EscapedByte(unsigned char byte, char (&hex)[4]) {
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
    static constexpr char kDigits[] = "0123456789ABCDEF";
    hex[0] = '\\';
    hex[1] = 'x';
    hex[2] = kDigits[byte >> 4];
    hex[3] = kDigits[byte & 0xF];
    return std::string_view(hex, sizeof hex);
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

// The character as it is printed: itself, or the escapes of its bytes.
std::string_view PrintedCharacter(std::string_view character, bool escape, std::string& escapes) {
    if (!escape) {
        return character;
    }
    escapes.clear();
    char hex[4];
    for (char byte : character) {
        escapes += EscapedByte(static_cast<unsigned char>(byte), hex);
    }
    return escapes;
}

// At most max_bytes of escaped text, and "..." when more was left.
std::string Escaped(std::string_view text, size_t max_bytes, bool keep_lines = false) {
    std::string line;
    line.reserve(std::min(text.size(), max_bytes));
    std::string escapes;
    for (size_t at = 0; at < text.size();) {
        // Printable ASCII stands for itself; the backslash is escaped.
        const size_t plain = std::min(PlainAsciiRunLength(text, at, "\\"),
                                      max_bytes - std::min(max_bytes, line.size()));
        if (plain > 0) {
            line.append(text, at, plain);
            at += plain;
            continue;
        }
        const size_t length = Utf8SequenceLength(text, at);
        const std::string_view character = text.substr(at, length == 0 ? 1 : length);
        const std::string_view printed =
            PrintedCharacter(character, length == 0 || NeedsEscape(character, keep_lines), escapes);
        if (line.size() + printed.size() > max_bytes) {
            return line + "...";
        }
        line += printed;
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
