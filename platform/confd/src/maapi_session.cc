/* MAAPI sockets and transactions. */
#include "agent.h"
#include "call_trace.h"
#include "confd_maapi.h"
#include "error_state.h"

using confd::detail::SocketKind;

extern "C" {

int maapi_connect(int sock, const struct sockaddr* srv, int srv_sz) {
    confd::detail::CallTrace trace("maapi_connect");
    return trace.returned(confd::detail::connect_socket(sock, SocketKind::maapi, srv, srv_sz));
}

int maapi_close(int sock) {
    confd::detail::CallTrace trace("maapi_close");
    return trace.returned(confd::detail::close_socket(sock, SocketKind::maapi));
}

int maapi_start_trans(int sock, enum confd_dbname db, enum confd_trans_mode mode) {
    confd::detail::CallTrace trace("maapi_start_trans");
    if (mode != CONFD_READ && mode != CONFD_READ_WRITE) {
        return trace.returned(
            confd::detail::failf(CONFD_ERR_PROTOUSAGE, "start_trans: bad mode %d", mode));
    }
    return trace.returned_number(confd::detail::start_transaction(sock, db));
}

int maapi_finish_trans(int sock, int thandle) {
    confd::detail::CallTrace trace("maapi_finish_trans");
    return trace.returned(confd::detail::finish_transaction(sock, thandle));
}

}  // extern "C"
