/*
 * The path-taking reads MAAPI and CDB share, on one data tree. Each expands
 * the path template, applies the fault-injection seam under the caller's
 * API name, locates the path and reads.
 */
#ifndef CONFD_SRC_READS_H
#define CONFD_SRC_READS_H

#include <cstdarg>
#include <memory>

#include "data_tree.h"
#include "error_state.h"
#include "typed_value.h"

namespace confd::detail {

// 1 when the node exists (a list given without keys: when it has an
// entry), 0 when not, CONFD_ERR for a bad path.
int read_exists(const char* call, const Tree& tree, const char* fmt, va_list args);

// The number of entries of a list given without keys, or CONFD_ERR.
int read_num_instances(const char* call, const Tree& tree, const char* fmt, va_list args);

// The value of a leaf: CONFD_OK, or CONFD_ERR with CONFD_ERR_NOEXISTS,
// CONFD_ERR_BADPATH or CONFD_ERR_BADTYPE.
int read_elem(const char* call, const Tree& tree, TypedValue& value, const char* fmt, va_list args);

// read_elem into *out, buffers allocated for the caller (confd_free_value).
int read_copy(const char* call, const Tree& tree, confd_value_t* out, const char* fmt,
              va_list args);

// read_elem of a leaf of ConfD type `type`, its payload stored in *out.
template <typename T>
int read_typed(const char* call, const Tree& tree, confd_vtype type,
               T (*extract)(const confd_value_t&), T* out, const char* fmt, va_list args) {
    if (out == nullptr) {
        return null_result();
    }
    TypedValue value;
    if (read_elem(call, tree, value, fmt, args) != CONFD_OK) {
        return CONFD_ERR;
    }
    if (value.type() != type) {
        return bad_type(type, value.type());
    }
    *out = extract(value.view());
    return CONFD_OK;
}

// read(*tree), or CONFD_ERR when there is no tree (its error is set already).
template <typename Read>
int on_tree(const std::shared_ptr<const Tree>& tree, Read read) {
    return tree ? read(*tree) : CONFD_ERR;
}

// Payload accessors for read_typed.
inline int32_t int32_of(const confd_value_t& v) {
    return v.val.i32;
}
inline u_int8_t uint8_of(const confd_value_t& v) {
    return v.val.u8;
}
inline u_int16_t uint16_of(const confd_value_t& v) {
    return v.val.u16;
}
inline u_int32_t uint32_of(const confd_value_t& v) {
    return v.val.u32;
}
inline confd_ipv4_prefix ipv4_prefix_of(const confd_value_t& v) {
    return v.val.ipv4prefix;
}
inline confd_ipv6_prefix ipv6_prefix_of(const confd_value_t& v) {
    return v.val.ipv6prefix;
}

}  // namespace confd::detail

#endif
