/*
 * Text forms of ConfD values: what confd_pp_value prints, and the form a key
 * takes inside the braces of a path.
 */
#ifndef CONFD_SRC_VALUE_TEXT_H
#define CONFD_SRC_VALUE_TEXT_H

#include <cstddef>
#include <string>

#include "confd_lib.h"

namespace confd::detail {

std::string value_text(const confd_value_t& value);

// value_text, in double quotes (with \" and \\ escaped) when it holds a blank,
// a brace or a quote, so that a path parser reads it back as one key.
std::string key_text(const confd_value_t& value);

// The keys of one list entry as a path writes them, "{k1 k2}": up to the
// first C_NOEXISTS or MAXKEYLEN keys.
std::string keys_text(const confd_value_t* keys);

// Bytes as lower-case hexadecimal octets joined by ':' ("0a:00:00:01").
std::string hex_octets(const unsigned char* bytes, size_t size);

// The name of a tag: the schema's node name, or "tag<N>" when unknown.
std::string tag_text(uint32_t tag);

// snprintf-style copy: writes at most bufsiz bytes including the NUL and
// returns the full length of text.
int copy_out(char* buf, int bufsiz, const std::string& text);

}  // namespace confd::detail

#endif
