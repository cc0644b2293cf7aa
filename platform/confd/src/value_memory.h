/* Values that own memory: buffers allocated for the caller. */
#ifndef CONFD_SRC_VALUE_MEMORY_H
#define CONFD_SRC_VALUE_MEMORY_H

#include <cstddef>

#include "confd_lib.h"

namespace confd::detail {

// Sets value to a buffer type (C_BUF, C_BINARY) holding a malloc'ed,
// NUL-terminated copy of bytes; false when memory runs out.
bool set_owned_buffer(confd_value_t* value, confd_vtype type, const void* bytes, size_t size);

// Copies from into to, buffers into malloc'ed, NUL-terminated memory of
// their own; false (to untouched) when memory runs out.
bool copy_value(const confd_value_t& from, confd_value_t* to);

}  // namespace confd::detail

#endif
