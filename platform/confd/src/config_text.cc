#include "config_text.h"

namespace confd::detail {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr const char* kJsonBlanks = " \t\r\n";

// The offset just past the top-level object or array that starts at
// `start`; npos when the text ends inside it.
size_t json_value_end(std::string_view text, size_t start) {
    size_t depth = 0;
    bool in_string = false;
    bool escaped = false;
    for (size_t at = start; at < text.size(); ++at) {
        const char c = text[at];
        if (in_string) {
            if (escaped) {
                escaped = false;
            } else if (c == '\\') {
                escaped = true;
            } else if (c == '"') {
                in_string = false;
            }
        } else if (c == '"') {
            in_string = true;
        } else if (c == '{' || c == '[') {
            ++depth;
        } else if ((c == '}' || c == ']') && --depth == 0) {
            return at + 1;
        }
    }
    return std::string_view::npos;
}

// The JSON value starts at or after `from`; offsets are the file's. A scalar
// at the top level is left to libyang, which refuses it.
void check_json_ends_with_its_value(std::string_view text, size_t from, const std::string& name) {
    const size_t start = text.find_first_not_of(kJsonBlanks, from);
    if (start == std::string_view::npos || (text[start] != '{' && text[start] != '[')) {
        return;
    }
    const size_t end = json_value_end(text, start);
    if (end == std::string_view::npos) {
        throw confdstore::Error(name + ": the JSON value is not closed at the end of the file");
    }
    const size_t rest = text.find_first_not_of(kJsonBlanks, end);
    if (rest != std::string_view::npos) {
        throw confdstore::Error(name + ": content after the JSON value at offset " +
                                std::to_string(rest));
    }
}

}  // namespace

std::string_view checked_config_text(const std::string& text, confdstore::DataFormat format,
                                     const std::string& name) {
    const size_t nul = text.find('\0');
    if (nul != std::string::npos) {
        throw confdstore::Error(name + ": NUL byte at offset " + std::to_string(nul));
    }
    const std::string_view whole = text;
    const size_t start =
        whole.substr(0, kByteOrderMark.size()) == kByteOrderMark ? kByteOrderMark.size() : 0;
    if (format == confdstore::DataFormat::json) {
        check_json_ends_with_its_value(whole, start, name);
    }
    return whole.substr(start);
}

}  // namespace confd::detail
