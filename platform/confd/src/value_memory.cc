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

bool copy_list(const confd_list& from, confd_list* to) {
    auto* items = static_cast<confd_value_t*>(
        std::calloc(from.size == 0 ? 1 : from.size, sizeof(confd_value_t)));
    if (items == nullptr) {
        return false;
    }
    for (unsigned int i = 0; i < from.size; ++i) {
        if (confd_value_dup_to(&from.ptr[i], &items[i]) == nullptr) {
            for (unsigned int j = 0; j < i; ++j) {
                confd_free_value(&items[j]);
            }
            std::free(items);
            return false;
        }
    }
    to->ptr = items;
    to->size = from.size;
    return true;
}

template <typename T>
bool copy_pointee(const T* from, T** to) {
    if (from == nullptr) {
        *to = nullptr;
        return true;
    }
    *to = static_cast<T*>(std::malloc(sizeof(T)));
    if (*to == nullptr) {
        return false;
    }
    std::memcpy(*to, from, sizeof(T));
    return true;
}

bool copy_payload(const confd_value_t& from, confd_value_t* to) {
    switch (from.type) {
        case C_BUF:
        case C_BINARY:
        case C_HEXSTR:
        case C_BITBIG:
            return copy_buffer(from.val.buf, &to->val.buf);
        case C_QNAME:
            if (!copy_buffer(from.val.qname.prefix, &to->val.qname.prefix)) {
                return false;
            }
            if (!copy_buffer(from.val.qname.name, &to->val.qname.name)) {
                std::free(to->val.qname.prefix.ptr);
                return false;
            }
            return true;
        case C_LIST:
            return copy_list(from.val.list, &to->val.list);
        case C_OBJECTREF:
            return copy_pointee(from.val.hkp, &to->val.hkp);
        case C_OID:
            return copy_pointee(from.val.oidp, &to->val.oidp);
        default:
            return true;
    }
}

bool lists_equal(const confd_list& a, const confd_list& b) {
    if (a.size != b.size) {
        return false;
    }
    for (unsigned int i = 0; i < a.size; ++i) {
        if (!confd_val_eq(&a.ptr[i], &b.ptr[i])) {
            return false;
        }
    }
    return true;
}

bool oids_equal(const confd_snmp_oid* a, const confd_snmp_oid* b) {
    if (a == nullptr || b == nullptr) {
        return a == b;
    }
    return a->len == b->len && a->len >= 0 && a->len <= 128 &&
           std::memcmp(a->oid, b->oid, sizeof(a->oid[0]) * static_cast<size_t>(a->len)) == 0;
}

bool keypaths_equal(const confd_hkeypath_t* a, const confd_hkeypath_t* b) {
    if (a == nullptr || b == nullptr) {
        return a == b;
    }
    if (a->len != b->len || a->len < 0 || a->len > MAXDEPTH) {
        return false;
    }
    for (int i = 0; i < a->len; ++i) {
        for (int k = 0; k < MAXKEYLEN; ++k) {
            if (!confd_val_eq(&a->v[i][k], &b->v[i][k])) {
                return false;
            }
            if (a->v[i][k].type == C_NOEXISTS || a->v[i][k].type == C_XMLTAG) {
                break;
            }
        }
    }
    return true;
}

template <typename T>
bool bytes_equal(const T& a, const T& b) {
    return std::memcmp(&a, &b, sizeof(T)) == 0;
}

bool payloads_equal(const confd_value_t& a, const confd_value_t& b) {
    const auto& x = a.val;
    const auto& y = b.val;
    switch (a.type) {
        case C_NOEXISTS:
        case C_DEFAULT:
        case C_EMPTY:
            return true;
        case C_XMLTAG:
        case C_XMLBEGIN:
        case C_XMLEND:
        case C_XMLBEGINDEL:
            return x.xmltag.tag == y.xmltag.tag && x.xmltag.ns == y.xmltag.ns;
        case C_STR:
            return x.c_s != nullptr && y.c_s != nullptr ? std::strcmp(x.c_s, y.c_s) == 0
                                                        : x.c_s == y.c_s;
        case C_BUF:
        case C_BINARY:
        case C_HEXSTR:
        case C_BITBIG:
            return buffers_equal(x.buf, y.buf);
        case C_INT8:
            return x.i8 == y.i8;
        case C_INT16:
            return x.i16 == y.i16;
        case C_INT32:
        case C_CDBBEGIN:
            return x.i32 == y.i32;
        case C_INT64:
            return x.i64 == y.i64;
        case C_UINT8:
            return x.u8 == y.u8;
        case C_UINT16:
            return x.u16 == y.u16;
        case C_UINT32:
        case C_SYMBOL:
            return x.u32 == y.u32;
        case C_UINT64:
            return x.u64 == y.u64;
        case C_DOUBLE:
            return x.d == y.d;
        case C_IPV4:
            return x.ip.s_addr == y.ip.s_addr;
        case C_IPV6:
            return bytes_equal(x.ip6, y.ip6);
        case C_BOOL:
            return (x.boolean != 0) == (y.boolean != 0);
        case C_QNAME:
            return buffers_equal(x.qname.prefix, y.qname.prefix) &&
                   buffers_equal(x.qname.name, y.qname.name);
        case C_DATETIME:
            return bytes_equal(x.datetime, y.datetime);
        case C_DATE:
            return bytes_equal(x.date, y.date);
        case C_TIME:
            return bytes_equal(x.time, y.time);
        case C_DURATION:
            return bytes_equal(x.duration, y.duration);
        case C_ENUM_VALUE:
            return x.enumvalue == y.enumvalue;
        case C_BIT32:
            return x.b32 == y.b32;
        case C_BIT64:
            return x.b64 == y.b64;
        case C_LIST:
            return lists_equal(x.list, y.list);
        case C_OBJECTREF:
            return keypaths_equal(x.hkp, y.hkp);
        case C_OID:
            return oids_equal(x.oidp, y.oidp);
        case C_IPV4PREFIX:
        case C_IPV4_AND_PLEN:
            return x.ipv4prefix.ip.s_addr == y.ipv4prefix.ip.s_addr &&
                   x.ipv4prefix.len == y.ipv4prefix.len;
        case C_IPV6PREFIX:
        case C_IPV6_AND_PLEN:
            return bytes_equal(x.ipv6prefix.ip6, y.ipv6prefix.ip6) &&
                   x.ipv6prefix.len == y.ipv6prefix.len;
        case C_DECIMAL64:
            return x.d64.value == y.d64.value && x.d64.fraction_digits == y.d64.fraction_digits;
        case C_IDENTITYREF:
            return x.idref.ns == y.idref.ns && x.idref.id == y.idref.id;
        case C_DQUAD:
            return bytes_equal(x.dquad, y.dquad);
        default:
            return false;
    }
}

}  // namespace

bool owns_memory(confd_vtype type) {
    return is_buffer_type(type) || type == C_QNAME || type == C_LIST || type == C_OBJECTREF ||
           type == C_OID;
}

bool set_owned_buffer(confd_value_t* value, confd_vtype type, const void* bytes, size_t size) {
    confd_buf_t from{static_cast<unsigned int>(size),
                     static_cast<unsigned char*>(const_cast<void*>(bytes))};
    if (!copy_buffer(from, &value->val.buf)) {
        return false;
    }
    value->type = type;
    return true;
}

}  // namespace confd::detail

extern "C" {

void confd_free_value(confd_value_t* v) {
    if (v == nullptr || !confd::detail::owns_memory(v->type)) {
        return;
    }
    switch (v->type) {
        case C_QNAME:
            std::free(v->val.qname.prefix.ptr);
            std::free(v->val.qname.name.ptr);
            break;
        case C_LIST:
            for (unsigned int i = 0; v->val.list.ptr != nullptr && i < v->val.list.size; ++i) {
                confd_free_value(&v->val.list.ptr[i]);
            }
            std::free(v->val.list.ptr);
            break;
        case C_OBJECTREF:
            std::free(v->val.hkp);
            break;
        case C_OID:
            std::free(v->val.oidp);
            break;
        default:
            std::free(v->val.buf.ptr);
            break;
    }
    // A freed value holds nothing, so freeing it again is harmless.
    v->type = C_NOEXISTS;
}

confd_value_t* confd_value_dup_to(const confd_value_t* v, confd_value_t* newv) {
    if (v == nullptr || newv == nullptr) {
        return nullptr;
    }
    confd_value_t copy = *v;
    if (!confd::detail::copy_payload(*v, &copy)) {
        confd_errno = CONFD_ERR_MALLOC;
        return nullptr;
    }
    *newv = copy;
    return newv;
}

int confd_val_eq(const confd_value_t* v1, const confd_value_t* v2) {
    if (v1 == nullptr || v2 == nullptr || v1->type != v2->type) {
        return 0;
    }
    return confd::detail::payloads_equal(*v1, *v2) ? 1 : 0;
}

}  // extern "C"
