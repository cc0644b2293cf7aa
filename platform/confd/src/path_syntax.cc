#include "path_syntax.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>

#include "path_format.h"
#include "value_text.h"

namespace confd::detail {
namespace {

bool is_blank(char c) {
    return c == ' ' || c == '\t';
}

// Whether a character ends a node name (a separator, a brace, a blank, a
// marker byte) or a run of a key's plain characters (a blank, a brace, a
// quote, a value marker), looked up rather than compared in turn: paths are
// scanned on every read.
struct CharacterClasses {
    bool ends_name[256] = {};
    bool ends_key_part[256] = {};

    constexpr CharacterClasses() {
        for (int c = 0; c <= kTagClose; ++c) {
            ends_name[c] = true;
        }
        for (const char c : {'/', '{', '}', ' ', '\t'}) {
            ends_name[static_cast<unsigned char>(c)] = true;
        }
        for (const char c : {' ', '\t', '}', '{', '"', kValueOpen}) {
            ends_key_part[static_cast<unsigned char>(c)] = true;
        }
    }
};
constexpr CharacterClasses kClasses;

// The offset of the first character from `from` on that table marks; the
// text's size when none does.
size_t find_marked(std::string_view text, size_t from, const bool (&table)[256]) {
    while (from < text.size() && !table[static_cast<unsigned char>(text[from])]) {
        ++from;
    }
    return from;
}

void clear(KeyToken& key) {
    key.text.clear();
    key.value = nullptr;
}

// The keys are not cleared here: parse_keys reuses them in turn.
void clear(PathStep& step) {
    step.prefix.clear();
    step.name.clear();
    step.tag.reset();
    step.keyed = false;
    step.end = 0;
}

// The item at index of items, cleared for parsing into, appended when items
// is that short. The items after index are left to be reused or cut off.
template <typename Item>
Item& reused(std::vector<Item>& items, size_t index) {
    if (index == items.size()) {
        return items.emplace_back();
    }
    clear(items[index]);
    return items[index];
}

class PathParser {
  public:
    PathParser(std::string_view text, const std::vector<confd_value_t>& values, size_t from)
        : text_(text), values_(values), pos_(from) {}

    bool parse(std::vector<PathStep>& steps, size_t kept, std::string& error);

  private:
    bool at_end() const { return pos_ >= text_.size(); }
    char peek() const { return at_end() ? '\0' : text_[pos_]; }
    bool fail(std::string& error, const std::string& message) {
        error = message + " at offset " + std::to_string(pos_);
        return false;
    }
    bool parse_step(PathStep& step, std::string& error);
    bool parse_keys(PathStep& step, std::string& error);
    bool parse_key(KeyToken& key, std::string& error);
    bool parse_quoted(std::string& text, std::string& error);
    bool parse_marker(std::string& text, const confd_value_t** value, std::string& error);
    bool parse_tag(PathStep& step, std::string& error);

    std::string_view text_;
    const std::vector<confd_value_t>& values_;
    size_t pos_;
};

bool PathParser::parse(std::vector<PathStep>& steps, size_t kept, std::string& error) {
    if (at_end() && kept == 0) {
        return fail(error, "empty path");
    }
    size_t count = kept;
    while (!at_end()) {
        if (peek() != '/') {
            return fail(error, "expected '/'");
        }
        ++pos_;
        PathStep& step = reused(steps, count++);
        if (!parse_step(step, error)) {
            return false;
        }
        step.end = pos_;
    }
    steps.resize(count);
    return true;
}

bool PathParser::parse_step(PathStep& step, std::string& error) {
    if (peek() == kTagOpen) {
        if (!parse_tag(step, error)) {
            return false;
        }
    } else {
        const size_t start = pos_;
        pos_ = find_marked(text_, pos_, kClasses.ends_name);
        std::string_view word = text_.substr(start, pos_ - start);
        const size_t colon = word.find(':');
        if (colon != std::string_view::npos) {
            step.prefix.assign(word.substr(0, colon));
            word.remove_prefix(colon + 1);
        }
        step.name.assign(word);
        if (step.name.empty() || word.find(':') != std::string_view::npos ||
            (colon != std::string_view::npos && step.prefix.empty())) {
            return fail(error, "bad node name");
        }
    }
    if (peek() == '{') {
        return parse_keys(step, error);
    }
    // A reused step may hold the keys of the step parsed into it before.
    step.keys.clear();
    if (!at_end() && peek() != '/') {
        return fail(error, "unexpected character");
    }
    return true;
}

bool PathParser::parse_tag(PathStep& step, std::string& error) {
    const size_t close = text_.find(kTagClose, pos_);
    const size_t comma = text_.find(',', pos_);
    xml_tag tag{};
    const char* begin = text_.data() + pos_ + 1;
    if (close == std::string_view::npos || comma > close ||
        std::from_chars(begin, text_.data() + comma, tag.tag).ptr != text_.data() + comma ||
        std::from_chars(text_.data() + comma + 1, text_.data() + close, tag.ns).ptr !=
            text_.data() + close) {
        return fail(error, "bad keypath element");
    }
    step.tag = tag;
    step.name = tag_text(tag.tag);
    pos_ = close + 1;
    return true;
}

bool PathParser::parse_keys(PathStep& step, std::string& error) {
    ++pos_;
    step.keyed = true;
    size_t count = 0;
    for (;;) {
        while (is_blank(peek())) {
            ++pos_;
        }
        if (at_end()) {
            return fail(error, "unbalanced '{'");
        }
        if (peek() == '}') {
            ++pos_;
            break;
        }
        if (count >= MAXKEYLEN - 1) {
            return fail(error, "too many keys");
        }
        if (!parse_key(reused(step.keys, count++), error)) {
            return false;
        }
    }
    step.keys.resize(count);
    if (count == 0) {
        return fail(error, "empty key");
    }
    if (!at_end() && peek() != '/') {
        return fail(error, "unexpected character after '}'");
    }
    return true;
}

bool PathParser::parse_key(KeyToken& key, std::string& error) {
    if (peek() == '"') {
        return parse_quoted(key.text, error);
    }
    int parts = 0;
    const confd_value_t* value = nullptr;
    while (!at_end() && !is_blank(peek()) && peek() != '}') {
        if (peek() == '{' || peek() == '"') {
            return fail(error, "unexpected character in key");
        }
        if (peek() == kValueOpen) {
            if (!parse_marker(key.text, &value, error)) {
                return false;
            }
        } else {
            // The key's plain characters up to a marker, a blank, a brace or
            // a quote, in one piece.
            const size_t end = find_marked(text_, pos_, kClasses.ends_key_part);
            key.text.append(text_.substr(pos_, end - pos_));
            pos_ = end;
        }
        ++parts;
    }
    // A key that is exactly one %x value keeps the value itself.
    if (parts == 1 && value != nullptr) {
        key.value = value;
    }
    return true;
}

bool PathParser::parse_quoted(std::string& text, std::string& error) {
    ++pos_;
    while (!at_end() && peek() != '"') {
        if (peek() == '\\' && pos_ + 1 < text_.size()) {
            ++pos_;
        }
        text += text_[pos_++];
    }
    if (at_end()) {
        return fail(error, "unterminated quoted key");
    }
    ++pos_;
    if (!at_end() && !is_blank(peek()) && peek() != '}') {
        return fail(error, "unexpected character after quoted key");
    }
    return true;
}

bool PathParser::parse_marker(std::string& text, const confd_value_t** value, std::string& error) {
    const size_t close = text_.find(kValueClose, pos_);
    size_t index = 0;
    const char* begin = text_.data() + pos_ + 1;
    const char* end = text_.data() + (close == std::string_view::npos ? pos_ : close);
    if (close == std::string_view::npos || std::from_chars(begin, end, index).ptr != end ||
        index >= values_.size()) {
        return fail(error, "bad value in key");
    }
    *value = &values_[index];
    text += value_text(values_[index]);
    pos_ = close + 1;
    return true;
}

// The offset of the first byte from `from` on below 0x20, or the text's
// size. Eight bytes are looked at at a time: every path read is checked,
// and a byte below 0x20 is rare in one.
size_t first_low_byte(std::string_view text, size_t from) {
    constexpr uint64_t kOnes = 0x0101010101010101;
    constexpr uint64_t kHighBits = 0x8080808080808080;
    for (; from + sizeof(uint64_t) <= text.size(); from += sizeof(uint64_t)) {
        uint64_t word;
        std::memcpy(&word, text.data() + from, sizeof word);
        // Nonzero exactly when a byte of the word is below 0x20.
        if (((word - kOnes * 0x20) & ~word & kHighBits) != 0) {
            break;
        }
    }
    while (from < text.size() && static_cast<unsigned char>(text[from]) >= 0x20) {
        ++from;
    }
    return from;
}

// The offset of the first marker byte (path_format.h), or the text's size.
size_t first_marker(std::string_view text) {
    size_t at = first_low_byte(text, 0);
    while (at < text.size() && !(text[at] >= kValueOpen && text[at] <= kTagClose)) {
        at = first_low_byte(text, at + 1);
    }
    return at;
}

}  // namespace

bool check_path_characters(std::string_view text, Forbidden forbidden, std::string& error,
                           size_t offset) {
    const auto control = [](unsigned char c) { return (c < 0x20 && c != '\t') || c == 0x7f; };
    const size_t bad =
        forbidden == Forbidden::markers
            ? first_marker(text)
            : static_cast<size_t>(std::find_if(text.begin(), text.end(), control) - text.begin());
    if (bad != text.size()) {
        error = "control character in path at offset " + std::to_string(offset + bad);
        return false;
    }
    return true;
}

bool parse_path_text(std::string_view text, std::vector<PathStep>& steps, std::string& error) {
    return check_path_characters(text, Forbidden::control_characters, error) &&
           parse_path(text, {}, steps, error);
}

bool parse_path(std::string_view text, const std::vector<confd_value_t>& values,
                std::vector<PathStep>& steps, std::string& error, size_t kept) {
    PathParser parser(text, values, kept == 0 ? 0 : steps[kept - 1].end);
    return parser.parse(steps, kept, error);
}

std::string normalized_path(const std::vector<PathStep>& steps) {
    std::string text;
    for (const PathStep& step : steps) {
        text += '/';
        text += step.name;
        if (!step.keyed) {
            continue;
        }
        text += '{';
        for (size_t i = 0; i < step.keys.size(); ++i) {
            if (i != 0) {
                text += ' ';
            }
            confd_value_t as_text;
            CONFD_SET_STR(&as_text, step.keys[i].text.c_str());
            text += key_text(as_text);
        }
        text += '}';
    }
    return text;
}

}  // namespace confd::detail
