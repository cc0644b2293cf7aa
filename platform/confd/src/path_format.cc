#include "path_format.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <string>
#include <string_view>

#include "path_syntax.h"

namespace confd::detail {
namespace {

// Longer expansions are refused rather than allocated ("%999999999d").
constexpr size_t kMaxPathLength = size_t{1} << 20;

// One printf conversion after its '%', with '*' replaced by the argument.
struct Conversion {
    std::string directive = "%";  // the whole directive, as printf takes it
    std::string length;
    char letter = '\0';
};

class Expander {
  public:
    Expander(va_list args, FormattedPath& out) : out_(out) { va_copy(args_, args); }
    ~Expander() { va_end(args_); }
    Expander(const Expander&) = delete;
    Expander& operator=(const Expander&) = delete;

    bool run(const char* fmt, std::string& error);

  private:
    bool expand(const char*& p, std::string& error);
    bool parse_conversion(const char*& p, Conversion& conversion, std::string& error);
    bool print_conversion(const Conversion& conversion, std::string& error);
    template <typename T>
    bool print(const Conversion& conversion, T argument, std::string& error);
    template <typename T>
    bool print_decimal(const Conversion& conversion, T argument, std::string& error);
    bool append_text(std::string_view text, std::string& error);
    bool append_value(const confd_value_t* value, std::string& error);
    bool append_values(std::string& error);
    bool append_keypath(int levels, const confd_hkeypath_t* hkp, std::string& error);

    va_list args_;
    FormattedPath& out_;
};

bool Expander::run(const char* fmt, std::string& error) {
    for (const char* p = fmt; *p != '\0';) {
        if (*p != '%') {
            // The template's text up to the next directive, in one piece.
            const size_t length = std::strcspn(p, "%");
            if (!append_text(std::string_view(p, length), error)) {
                return false;
            }
            p += length;
            continue;
        }
        ++p;
        if (!expand(p, error)) {
            return false;
        }
        if (out_.text.size() > kMaxPathLength) {
            error = "path too long";
            return false;
        }
    }
    return true;
}

// Text of the template or printed by a conversion. Markers only come from
// values and keypaths; other control characters are key text, since data may
// hold keys with them and the plug-in puts keys it read into paths with %s.
bool Expander::append_text(std::string_view text, std::string& error) {
    if (!check_path_characters(text, Forbidden::markers, error, out_.text.size())) {
        return false;
    }
    out_.text += text;
    return true;
}

bool Expander::expand(const char*& p, std::string& error) {
    const bool at_start = out_.text.empty();
    if (*p == '%') {
        out_.text += *p++;
        return true;
    }
    if (*p == 'x') {
        ++p;
        return append_value(va_arg(args_, const confd_value_t*), error);
    }
    if (p[0] == '*' && p[1] == 'x') {
        p += 2;
        return append_values(error);
    }
    if (at_start && *p == 'h') {
        ++p;
        const auto* hkp = va_arg(args_, const confd_hkeypath_t*);
        return append_keypath(hkp != nullptr ? hkp->len : 0, hkp, error);
    }
    if (at_start && p[0] == '*' && p[1] == 'h') {
        p += 2;
        const int levels = va_arg(args_, int);
        return append_keypath(levels, va_arg(args_, const confd_hkeypath_t*), error);
    }
    Conversion conversion;
    return parse_conversion(p, conversion, error) && print_conversion(conversion, error);
}

bool Expander::parse_conversion(const char*& p, Conversion& c, std::string& error) {
    while (*p != '\0' && std::strchr("-+ #0'", *p) != nullptr) {
        c.directive += *p++;
    }
    for (int part = 0; part < 2; ++part) {
        if (part == 1) {
            if (*p != '.') {
                break;
            }
            c.directive += *p++;
        }
        // A width or precision that makes the text too long is refused before
        // printf has to produce it.
        long long number = 0;
        bool given = *p == '*';
        if (given) {
            number = va_arg(args_, int);
            ++p;
        }
        for (; *p >= '0' && *p <= '9'; ++p, given = true) {
            number = std::min<long long>(number * 10 + (*p - '0'), kMaxPathLength + 1);
        }
        if (number > static_cast<long long>(kMaxPathLength)) {
            error = "path too long";
            return false;
        }
        if (given) {
            c.directive += std::to_string(number);
        }
    }
    // A length modifier: "hh", "ll", or one of "hlLjzt".
    if (*p != '\0' && std::strchr("hlLjzt", *p) != nullptr) {
        const size_t size = (*p == 'h' || *p == 'l') && p[1] == *p ? 2 : 1;
        c.length.assign(p, size);
        p += size;
    }
    if (*p == '\0' || std::strchr("diouxXeEfFgGaAcsp", *p) == nullptr) {
        error = "unsupported conversion in path template";
        return false;
    }
    c.letter = *p++;
    c.directive += c.length + c.letter;
    return true;
}

template <typename T>
bool Expander::print(const Conversion& conversion, T argument, std::string& error) {
    const int size = std::snprintf(nullptr, 0, conversion.directive.c_str(), argument);
    if (size > 0 && static_cast<size_t>(size) > kMaxPathLength) {
        error = "path too long";
        return false;
    }
    if (size <= 0) {
        return true;
    }
    std::string text(static_cast<size_t>(size) + 1, '\0');
    std::snprintf(text.data(), text.size(), conversion.directive.c_str(), argument);
    text.resize(static_cast<size_t>(size));
    return append_text(text, error);
}

// A plain "%d", "%i" or "%u" prints as std::to_chars writes the number;
// anything else goes through printf.
template <typename T>
bool Expander::print_decimal(const Conversion& conversion, T argument, std::string& error) {
    if (conversion.directive.size() != 2) {
        return print(conversion, argument, error);
    }
    char digits[24];
    const auto printed = std::to_chars(std::begin(digits), std::end(digits), argument);
    out_.text.append(digits, printed.ptr);
    return true;
}

bool Expander::print_conversion(const Conversion& c, std::string& error) {
    const std::string& l = c.length;
    switch (c.letter) {
        case 'd':
        case 'i':
            if (l == "ll") {
                return print(c, va_arg(args_, long long), error);
            }
            if (l == "l") {
                return print(c, va_arg(args_, long), error);
            }
            if (l == "j") {
                return print(c, va_arg(args_, intmax_t), error);
            }
            if (l == "z" || l == "t") {
                return print(c, va_arg(args_, ptrdiff_t), error);
            }
            return print_decimal(c, va_arg(args_, int), error);
        case 'o':
        case 'u':
        case 'x':
        case 'X':
            if (l == "ll") {
                return print(c, va_arg(args_, unsigned long long), error);
            }
            if (l == "l") {
                return print(c, va_arg(args_, unsigned long), error);
            }
            if (l == "j") {
                return print(c, va_arg(args_, uintmax_t), error);
            }
            if (l == "z" || l == "t") {
                return print(c, va_arg(args_, size_t), error);
            }
            return c.letter == 'u' ? print_decimal(c, va_arg(args_, unsigned int), error)
                                   : print(c, va_arg(args_, unsigned int), error);
        case 'e':
        case 'E':
        case 'f':
        case 'F':
        case 'g':
        case 'G':
        case 'a':
        case 'A':
            if (l == "L") {
                return print(c, va_arg(args_, long double), error);
            }
            return print(c, va_arg(args_, double), error);
        case 'c':
            return print(c, va_arg(args_, int), error);
        case 'p':
            return print(c, va_arg(args_, void*), error);
        default:
            break;
    }
    const char* text = va_arg(args_, const char*);
    if (text == nullptr || !l.empty()) {
        error = text == nullptr ? "null string argument in path" : "bad string argument in path";
        return false;
    }
    if (c.directive != "%s") {
        return print(c, text, error);
    }
    // A plain "%s", the usual way of passing a whole path, is the string as
    // it is: no need for printf.
    const std::string_view whole(text);
    if (whole.size() > kMaxPathLength) {
        error = "path too long";
        return false;
    }
    return append_text(whole, error);
}

bool Expander::append_value(const confd_value_t* value, std::string& error) {
    if (value == nullptr) {
        error = "null value argument in path";
        return false;
    }
    out_.text += kValueOpen + std::to_string(out_.values.size()) + kValueClose;
    out_.values.push_back(*value);
    return true;
}

bool Expander::append_values(std::string& error) {
    const int count = va_arg(args_, int);
    const auto* values = va_arg(args_, const confd_value_t*);
    if (count < 0 || count > MAXKEYLEN || (values == nullptr && count > 0)) {
        error = "bad value array argument in path";
        return false;
    }
    for (int i = 0; i < count; ++i) {
        if (i != 0) {
            out_.text += ' ';
        }
        append_value(&values[i], error);
    }
    return true;
}

bool Expander::append_keypath(int levels, const confd_hkeypath_t* hkp, std::string& error) {
    if (hkp == nullptr || hkp->len < 0 || hkp->len > MAXDEPTH || levels < 0 || levels > hkp->len) {
        error = "bad keypath argument in path";
        return false;
    }
    for (int i = hkp->len - 1; i >= hkp->len - levels; --i) {
        const confd_value_t* level = hkp->v[i];
        if (level[0].type == C_XMLTAG) {
            out_.text += '/';
            out_.text += kTagOpen + std::to_string(level[0].val.xmltag.tag) + ',' +
                         std::to_string(level[0].val.xmltag.ns) + kTagClose;
            continue;
        }
        out_.text += '{';
        for (int k = 0; k < MAXKEYLEN && level[k].type != C_NOEXISTS; ++k) {
            if (k != 0) {
                out_.text += ' ';
            }
            append_value(&level[k], error);
        }
        out_.text += '}';
    }
    return true;
}

// The usual way of passing a whole path, "%s", is the caller's string as it
// is: checked as printed text is, not copied.
bool borrow_whole_path(va_list args, FormattedPath& out, std::string& error) {
    va_list own;
    va_copy(own, args);
    const char* text = va_arg(own, const char*);
    va_end(own);
    if (text == nullptr) {
        error = "null string argument in path";
        return false;
    }
    const std::string_view whole(text);
    if (whole.size() > kMaxPathLength) {
        error = "path too long";
        return false;
    }
    if (!check_path_characters(whole, Forbidden::markers, error)) {
        return false;
    }
    out.path = whole;
    return true;
}

}  // namespace

bool format_path(const char* fmt, va_list args, FormattedPath& out, std::string& error) {
    if (fmt == nullptr) {
        error = "null path";
        return false;
    }
    if (std::strcmp(fmt, "%s") == 0) {
        return borrow_whole_path(args, out, error);
    }
    Expander expander(args, out);
    if (!expander.run(fmt, error)) {
        return false;
    }
    out.path = out.text;
    return true;
}

}  // namespace confd::detail
