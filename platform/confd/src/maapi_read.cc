/* MAAPI reads of a transaction's data: existence, counts and leaf values. */
#include <cstring>
#include <memory>

#include "agent.h"
#include "call_trace.h"
#include "confd_maapi.h"
#include "error_state.h"
#include "reads.h"

using confd::detail::on_tree;
using confd::detail::Tree;

namespace {

// The tree the transaction reads, or nullptr with the error set.
std::shared_ptr<const Tree> transaction_tree(int sock, int thandle) {
    confd::detail::TransactionView view;
    if (confd::detail::transaction(sock, thandle, view) != CONFD_OK) {
        return nullptr;
    }
    return view.tree;
}

// maapi_get_str_elem with its arguments as a va_list.
int get_str_elem(int sock, int thandle, char* buf, int n, const char* fmt, va_list args) {
    if (buf == nullptr || n <= 0) {
        return confd::detail::fail(CONFD_ERR_PROTOUSAGE, "get_str_elem: no buffer");
    }
    confd::detail::TypedValue value;
    const int read = on_tree(transaction_tree(sock, thandle), [&](const Tree& tree) {
        return confd::detail::read_elem("maapi_get_str_elem", tree, value, fmt, args);
    });
    if (read != CONFD_OK) {
        return CONFD_ERR;
    }
    if (value.type() != C_BUF) {
        return confd::detail::bad_type(C_BUF, value.type());
    }
    const confd_value_t text = value.view();
    if (text.val.buf.size >= static_cast<unsigned int>(n)) {
        return confd::detail::failf(CONFD_ERR_PROTOUSAGE,
                                    "get_str_elem: %u characters do not fit in %d bytes",
                                    text.val.buf.size, n);
    }
    std::memcpy(buf, text.val.buf.ptr, text.val.buf.size);
    buf[text.val.buf.size] = '\0';
    return CONFD_OK;
}

}  // namespace

// The typed getters differ only in their name, type and payload.
#define CONFD_MAAPI_TYPED_GETTER(name, T, type, extract)                                           \
    int name(int sock, int thandle, T* rval, const char* fmt, ...) {                               \
        confd::detail::CallTrace trace(#name, fmt);                                                \
        va_list args;                                                                              \
        va_start(args, fmt);                                                                       \
        const int result = on_tree(transaction_tree(sock, thandle), [&](const Tree& tree) {        \
            return confd::detail::read_typed(#name, tree, type, confd::detail::extract, rval, fmt, \
                                             args);                                                \
        });                                                                                        \
        va_end(args);                                                                              \
        return trace.returned(result);                                                             \
    }

extern "C" {

int maapi_exists(int sock, int thandle, const char* fmt, ...) {
    confd::detail::CallTrace trace("maapi_exists", fmt);
    va_list args;
    va_start(args, fmt);
    const int result = on_tree(transaction_tree(sock, thandle), [&](const Tree& tree) {
        return confd::detail::read_exists("maapi_exists", tree, fmt, args);
    });
    va_end(args);
    return trace.returned_number(result);
}

int maapi_num_instances(int sock, int thandle, const char* fmt, ...) {
    confd::detail::CallTrace trace("maapi_num_instances", fmt);
    va_list args;
    va_start(args, fmt);
    const int result = on_tree(transaction_tree(sock, thandle), [&](const Tree& tree) {
        return confd::detail::read_num_instances("maapi_num_instances", tree, fmt, args);
    });
    va_end(args);
    return trace.returned_number(result);
}

int maapi_get_elem(int sock, int thandle, confd_value_t* v, const char* fmt, ...) {
    confd::detail::CallTrace trace("maapi_get_elem", fmt);
    va_list args;
    va_start(args, fmt);
    const int result = on_tree(transaction_tree(sock, thandle), [&](const Tree& tree) {
        return confd::detail::read_copy("maapi_get_elem", tree, v, fmt, args);
    });
    va_end(args);
    return trace.returned(result);
}

CONFD_MAAPI_TYPED_GETTER(maapi_get_int32_elem, int32_t, C_INT32, int32_of)
CONFD_MAAPI_TYPED_GETTER(maapi_get_u_int8_elem, u_int8_t, C_UINT8, uint8_of)
CONFD_MAAPI_TYPED_GETTER(maapi_get_u_int16_elem, u_int16_t, C_UINT16, uint16_of)
CONFD_MAAPI_TYPED_GETTER(maapi_get_u_int32_elem, u_int32_t, C_UINT32, uint32_of)
CONFD_MAAPI_TYPED_GETTER(maapi_get_ipv4_and_plen_elem, struct confd_ipv4_prefix, C_IPV4_AND_PLEN,
                         ipv4_prefix_of)
CONFD_MAAPI_TYPED_GETTER(maapi_get_ipv6_and_plen_elem, struct confd_ipv6_prefix, C_IPV6_AND_PLEN,
                         ipv6_prefix_of)

int maapi_get_str_elem(int sock, int thandle, char* buf, int n, const char* fmt, ...) {
    confd::detail::CallTrace trace("maapi_get_str_elem", fmt);
    va_list args;
    va_start(args, fmt);
    const int result = get_str_elem(sock, thandle, buf, n, fmt, args);
    va_end(args);
    return trace.returned(result);
}

}  // extern "C"
