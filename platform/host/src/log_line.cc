// Builds fault and debug lines. Texts come from plug-ins and may hold
// anything, so they are made safe for a line-oriented log: trailing newlines
// are dropped (the line ends anyway), other control characters are escaped
// ("\n", "\r", "\xHH"; a tab stays), and a missing text reads "(null)".
#include "log_line.h"

#include <stdio.h>

#include <vector>

namespace velconfd {
namespace {

constexpr const char* kNullText = "(null)";

const char* or_null_text(const char* text) {
    return text != nullptr ? text : kNullText;
}

void append_escaped(std::string& line, char c) {
    const unsigned char byte = static_cast<unsigned char>(c);
    if (c == '\n') {
        line += "\\n";
    } else if (c == '\r') {
        line += "\\r";
    } else if ((byte < 0x20 && c != '\t') || byte == 0x7f) {
        char hex[5];
        snprintf(hex, sizeof hex, "\\x%02x", byte);
        line += hex;
    } else {
        line += c;
    }
}

void append_single_line(std::string& line, const std::string& text) {
    std::string::size_type end = text.size();
    while (end > 0 && text[end - 1] == '\n') {
        --end;
    }
    for (std::string::size_type i = 0; i < end; ++i) {
        append_escaped(line, text[i]);
    }
}

// printf-style formatting of any length; a format that vsnprintf rejects
// leaves the format text itself, so the line still says what was meant.
std::string formatted(const char* format, va_list args) {
    va_list measure;
    va_copy(measure, args);
    const int length = vsnprintf(nullptr, 0, format, measure);
    va_end(measure);
    if (length < 0) {
        return format;
    }
    std::vector<char> buffer(static_cast<size_t>(length) + 1);
    vsnprintf(buffer.data(), buffer.size(), format, args);
    return std::string(buffer.data(), static_cast<size_t>(length));
}

}  // namespace

std::string fault_line(int code, const char* function, const char* file, int line,
                       const char* text) {
    std::string result = "fault: ";
    append_single_line(result, or_null_text(file));
    result += ':' + std::to_string(line) + ": ";
    append_single_line(result, or_null_text(function));
    result += ": ";
    append_single_line(result, or_null_text(text));
    result += " (code " + std::to_string(code) + ")\n";
    return result;
}

std::string debug_line(const char* format, va_list args) {
    std::string result = "debug: ";
    append_single_line(result, format != nullptr ? formatted(format, args) : kNullText);
    result += '\n';
    return result;
}

}  // namespace velconfd
