// UTF-8 as the tool's output needs it: where a well-formed character starts,
// and how far the text is printable ASCII that needs no look at all.
#ifndef IPAPP_VALIDATE_UTF8_H
#define IPAPP_VALIDATE_UTF8_H

#include <cstddef>
#include <string_view>

namespace ipapp_validate {

// The length of the well-formed UTF-8 sequence that starts text[at], or 0
// when none starts there (overlong forms, surrogates and values beyond
// U+10FFFF included). ASCII bytes are sequences of length 1.
size_t Utf8SequenceLength(std::string_view text, size_t at);

// The length of the run of printable ASCII characters (U+0020 to U+007E)
// from text[at] on that are not among `special` (the characters a writer
// escapes besides the control characters). Inline: the writers call it
// on every run with a constant `special`.
inline size_t PlainAsciiRunLength(std::string_view text, size_t at, std::string_view special) {
    // special holds a character or two: a loop over it costs less than a
    // search per character.
    const auto is_special = [special](char c) {
        for (char s : special) {
            if (c == s) {
                return true;
            }
        }
        return false;
    };
    size_t end = at;
    while (end < text.size()) {
        const auto c = static_cast<unsigned char>(text[end]);
        if (c < 0x20 || c >= 0x7F || is_special(text[end])) {
            break;
        }
        ++end;
    }
    return end - at;
}

}  // namespace ipapp_validate

#endif
