/*
 * The syntax of ConfD paths: "/a/prefix:b{k1 k2}/c". Keys are separated by
 * blanks (blanks next to the braces are allowed); a key holding a blank, a
 * brace or a quote is written in double quotes with \" and \\ escaped.
 * Expanded templates may carry value and tag markers (path_format.h).
 */
#ifndef CONFD_SRC_PATH_SYNTAX_H
#define CONFD_SRC_PATH_SYNTAX_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "confd_lib.h"

namespace confd::detail {

struct KeyToken {
    std::string text;
    const confd_value_t* value = nullptr;  // a %x value, used as it is
};

struct PathStep {
    std::string prefix;  // module name or prefix; empty when not given
    std::string name;
    std::optional<xml_tag> tag;  // a step from a keypath: the node by hash
    bool keyed = false;
    std::vector<KeyToken> keys;
    size_t end = 0;  // offset just past the step in the text it was parsed from
};

// The characters a path's text may not hold: the marker bytes of expanded
// templates (path_format.h), or every control character (below U+0020 but
// the tab, which separates keys, and DEL).
enum class Forbidden { markers, control_characters };

// Refuses ("control character in path at offset N", the offset counted from
// `offset`, where text stands in the path) text holding a forbidden
// character.
bool check_path_characters(std::string_view text, Forbidden forbidden, std::string& error,
                           size_t offset = 0);

// A path given as text, without template arguments (Datastore::keypath, the
// model's paths): refused if it holds a control character, else split as
// parse_path does.
bool parse_path_text(std::string_view text, std::vector<PathStep>& steps, std::string& error);

// Splits an expanded path into steps; false with a message when malformed.
// The first `kept` steps stay as they are, and the text after the last of
// them is parsed into the steps that follow; steps ends with the last step
// parsed. Step objects already there are reused: their strings keep their
// buffers, as a thread parsing path after path needs. Offsets in messages
// count from the text's start. Tokens point into values, which must outlive
// the steps.
bool parse_path(std::string_view text, const std::vector<confd_value_t>& values,
                std::vector<PathStep>& steps, std::string& error, size_t kept = 0);

// The path in one spelling: no module prefixes, keys as key_text separated
// by one blank. Used to compare paths written differently.
std::string normalized_path(const std::vector<PathStep>& steps);

}  // namespace confd::detail

#endif
