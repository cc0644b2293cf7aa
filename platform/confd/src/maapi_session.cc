/* MAAPI sockets and transactions. */
#include "agent.h"
#include "confd_maapi.h"
#include "error_state.h"

using confd::detail::SocketKind;

extern "C" {

int maapi_connect(int sock, const struct sockaddr* srv, int srv_sz) {
    return confd::detail::connect_socket(sock, SocketKind::maapi, srv, srv_sz);
}

int maapi_close(int sock) {
    return confd::detail::close_socket(sock, SocketKind::maapi);
}

int maapi_start_trans(int sock, enum confd_dbname db, enum confd_trans_mode mode) {
    if (mode != CONFD_READ && mode != CONFD_READ_WRITE) {
        return confd::detail::failf(CONFD_ERR_PROTOUSAGE, "start_trans: bad mode %d", mode);
    }
    return confd::detail::start_transaction(sock, db);
}

int maapi_finish_trans(int sock, int thandle) {
    return confd::detail::finish_transaction(sock, thandle);
}

int maapi_attach(int sock, int /*hashed_ns*/, struct confd_trans_ctx* ctx) {
    if (ctx == nullptr) {
        return confd::detail::fail(CONFD_ERR_PROTOUSAGE, "attach: null transaction context");
    }
    return confd::detail::attach(sock, ctx->thandle);
}

}  // extern "C"
