/* Freeing, copying and comparing values. */
#include "value_memory.h"

#include <cstdlib>
#include <cstring>

#include "typed_value.h"

namespace confd::detail {
namespace {

bool copy_buffer(const confd_buf_t& from, confd_buf_t* to) {
    auto* bytes = static_cast<unsigned char*>(std::malloc(from.size + 1));
    if (bytes == nullptr) {
        return false;
    }
    if (from.size != 0 && from.ptr != nullptr) {
        std::memcpy(bytes, from.ptr, from.size);
    }
    bytes[from.size] = '\0';
    to->ptr = bytes;
    to->size = from.size;
    return true;
}

bool buffers_equal(const confd_buf_t& a, const confd_buf_t& b) {
    return a.size == b.size && (a.size == 0 || std::memcmp(a.ptr, b.ptr, a.size) == 0);
}

template <typename T>
bool bytes_equal(const T& a, const T& b) {
    return std::memcmp(&a, &b, sizeof(T)) == 0;
}

// The types a value of the datastore or a keypath can hold; values of any
// other type are never equal.
bool payloads_equal(const confd_value_t& a, const confd_value_t& b) {
    const auto& x = a.val;
    const auto& y = b.val;
    switch (a.type) {
        case C_NOEXISTS:
            return true;
        case C_XMLTAG:
            return x.xmltag.tag == y.xmltag.tag && x.xmltag.ns == y.xmltag.ns;
        case C_STR:
            return x.c_s != nullptr && y.c_s != nullptr ? std::strcmp(x.c_s, y.c_s) == 0
                                                        : x.c_s == y.c_s;
        case C_BUF:
        case C_BINARY:
            return buffers_equal(x.buf, y.buf);
        case C_INT8:
            return x.i8 == y.i8;
        case C_INT16:
            return x.i16 == y.i16;
        case C_INT32:
            return x.i32 == y.i32;
        case C_INT64:
            return x.i64 == y.i64;
        case C_UINT8:
            return x.u8 == y.u8;
        case C_UINT16:
            return x.u16 == y.u16;
        case C_UINT32:
            return x.u32 == y.u32;
        case C_UINT64:
            return x.u64 == y.u64;
        case C_IPV4:
            return x.ip.s_addr == y.ip.s_addr;
        case C_IPV6:
            return bytes_equal(x.ip6, y.ip6);
        case C_BOOL:
            return (x.boolean != 0) == (y.boolean != 0);
        case C_ENUM_VALUE:
            return x.enumvalue == y.enumvalue;
        case C_IPV4_AND_PLEN:
            return x.ipv4prefix.ip.s_addr == y.ipv4prefix.ip.s_addr &&
                   x.ipv4prefix.len == y.ipv4prefix.len;
        case C_IPV6_AND_PLEN:
            return bytes_equal(x.ipv6prefix.ip6, y.ipv6prefix.ip6) &&
                   x.ipv6prefix.len == y.ipv6prefix.len;
        default:
            return false;
    }
}

}  // namespace

bool set_owned_buffer(confd_value_t* value, confd_vtype type, const void* bytes, size_t size) {
    confd_buf_t from{static_cast<unsigned int>(size),
                     static_cast<unsigned char*>(const_cast<void*>(bytes))};
    if (!copy_buffer(from, &value->val.buf)) {
        return false;
    }
    value->type = type;
    return true;
}

bool copy_value(const confd_value_t& from, confd_value_t* to) {
    confd_value_t copy = from;
    if (is_buffer_type(from.type) && !copy_buffer(from.val.buf, &copy.val.buf)) {
        return false;
    }
    *to = copy;
    return true;
}

}  // namespace confd::detail

extern "C" {

void confd_free_value(confd_value_t* v) {
    if (v == nullptr || !confd::detail::is_buffer_type(v->type)) {
        return;
    }
    std::free(v->val.buf.ptr);
    // A freed value holds nothing, so freeing it again is harmless.
    v->type = C_NOEXISTS;
}

int confd_val_eq(const confd_value_t* v1, const confd_value_t* v2) {
    if (v1 == nullptr || v2 == nullptr || v1->type != v2->type) {
        return 0;
    }
    return confd::detail::payloads_equal(*v1, *v2) ? 1 : 0;
}

}  // extern "C"
