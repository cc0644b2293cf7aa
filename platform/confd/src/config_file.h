/*
 * Reading a configuration file whole: every read checked, and never more
 * than a limit, so that an input that never ends (/dev/zero) is refused
 * before memory runs out.
 */
#ifndef CONFD_SRC_CONFIG_FILE_H
#define CONFD_SRC_CONFIG_FILE_H

#include <cstddef>
#include <string>

namespace confd::detail {

// The file's bytes. Throws confdstore::Error "<file>: cannot read: <reason>"
// (the system's reason; a directory is EISDIR) or "<file>: larger than
// <max_bytes> bytes".
std::string read_config_file(const std::string& file, size_t max_bytes);

}  // namespace confd::detail

#endif
