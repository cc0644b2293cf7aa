/* CDB: reads of the running configuration through a session. */
#include <memory>

#include "agent.h"
#include "call_trace.h"
#include "confd_cdb.h"
#include "error_state.h"
#include "reads.h"

using confd::detail::on_tree;
using confd::detail::SocketKind;
using confd::detail::Tree;

namespace {

// The tree of the socket's session, or nullptr with the error set.
std::shared_ptr<const Tree> session_tree(int sock) {
    std::shared_ptr<const Tree> tree;
    confd::detail::cdb_tree(sock, tree);
    return tree;
}

}  // namespace

extern "C" {

int cdb_connect(int sock, enum cdb_sock_type type, const struct sockaddr* srv, int srv_sz) {
    confd::detail::CallTrace trace("cdb_connect");
    if (type != CDB_READ_SOCKET && type != CDB_DATA_SOCKET) {
        return trace.returned(confd::detail::fail(
            CONFD_ERR_PROTOUSAGE, "cdb_connect: only read and data sockets are supported"));
    }
    return trace.returned(confd::detail::connect_socket(sock, SocketKind::cdb, srv, srv_sz));
}

int cdb_close(int sock) {
    confd::detail::CallTrace trace("cdb_close");
    return trace.returned(confd::detail::close_socket(sock, SocketKind::cdb));
}

int cdb_start_session(int sock, enum cdb_db_type db) {
    confd::detail::CallTrace trace("cdb_start_session");
    return trace.returned(confd::detail::start_cdb_session(sock, db));
}

int cdb_end_session(int sock) {
    confd::detail::CallTrace trace("cdb_end_session");
    return trace.returned(confd::detail::end_cdb_session(sock));
}

int cdb_exists(int sock, const char* fmt, ...) {
    confd::detail::CallTrace trace("cdb_exists", fmt);
    va_list args;
    va_start(args, fmt);
    const int result = on_tree(session_tree(sock), [&](const Tree& tree) {
        return confd::detail::read_exists("cdb_exists", tree, fmt, args);
    });
    va_end(args);
    return trace.returned_number(result);
}

int cdb_get_int32(int sock, int32_t* rval, const char* fmt, ...) {
    confd::detail::CallTrace trace("cdb_get_int32", fmt);
    va_list args;
    va_start(args, fmt);
    const int result = on_tree(session_tree(sock), [&](const Tree& tree) {
        return confd::detail::read_typed("cdb_get_int32", tree, C_INT32, confd::detail::int32_of,
                                         rval, fmt, args);
    });
    va_end(args);
    return trace.returned(result);
}

}  // extern "C"
