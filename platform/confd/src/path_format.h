/*
 * Expanding a ConfD path template ("/a/b{%s %d}/c", printf-style) into text.
 *
 * Besides the usual printf conversions, %x takes a confd_value_t*, %*x a
 * count and a confd_value_t array, and %h / %*h (only at the start) a
 * confd_hkeypath_t* (with a length). Values stay values: they appear in the
 * text as markers that the path parser turns back into the values, so keys
 * need no text round trip; keypath tags appear as tag markers resolved by
 * hash.
 */
#ifndef CONFD_SRC_PATH_FORMAT_H
#define CONFD_SRC_PATH_FORMAT_H

#include <cstdarg>
#include <string>
#include <string_view>
#include <vector>

#include "confd_lib.h"

namespace confd::detail {

// Markers in expanded text: kValueOpen index kValueClose stands for
// values[index]; kTagOpen tag ',' ns kTagClose for a schema node by hash.
constexpr char kValueOpen = '\x01';
constexpr char kValueClose = '\x02';
constexpr char kTagOpen = '\x03';
constexpr char kTagClose = '\x04';

struct FormattedPath {
    std::string text;
    std::vector<confd_value_t> values;  // shallow copies of the caller's values
    // The expanded path: text, or for the template "%s" the caller's string
    // itself, which outlives the call.
    std::string_view path;
};

// False (with a message) for a malformed template or arguments.
bool format_path(const char* fmt, va_list args, FormattedPath& out, std::string& error);

}  // namespace confd::detail

#endif
