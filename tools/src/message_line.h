// The tool's own messages and the report's rows are single lines: whatever
// they echo (file names, keypaths, libyang's text, which may quote the input)
// is made printable.
#ifndef IPAPP_VALIDATE_MESSAGE_LINE_H
#define IPAPP_VALIDATE_MESSAGE_LINE_H

#include <string>
#include <string_view>

namespace ipapp_validate {

// Longer messages are cut to this many bytes and end in "...".
constexpr size_t kMaxMessageLineBytes = 400;

// text as printable text on one line: control characters (C0, DEL and C1)
// and bytes that are not UTF-8 as \n, \r, \t or \xNN, a backslash as \\.
std::string Printable(std::string_view text);

// Printable(text), except that line breaks and tabs stay as they are.
std::string PrintableLines(std::string_view text);

// Printable(text), cut after kMaxMessageLineBytes on a character boundary.
std::string MessageLine(std::string_view text);

}  // namespace ipapp_validate

#endif
