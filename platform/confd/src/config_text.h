/*
 * What a configuration's text must be before libyang parses it: libyang
 * reads a C string and stops at the first NUL byte, and its JSON parser
 * ignores what follows the top-level value and takes a value cut after a
 * member's colon as empty. Both would check less than the whole text.
 */
#ifndef CONFD_SRC_CONFIG_TEXT_H
#define CONFD_SRC_CONFIG_TEXT_H

#include <string>
#include <string_view>

#include "confd_datastore.h"

namespace confd::detail {

// The part of text libyang is to parse: all of it but a UTF-8 byte-order
// mark at its very start; the view ends where text ends, so its data() is a
// C string. Throws confdstore::Error "<name>: <problem>" for a NUL byte
// anywhere and, in JSON, for a top-level object or array that is not closed
// or is followed by anything but blanks.
std::string_view checked_config_text(const std::string& text, confdstore::DataFormat format,
                                     const std::string& name);

}  // namespace confd::detail

#endif
