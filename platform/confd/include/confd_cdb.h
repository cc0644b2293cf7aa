/*
 * ConfD-compatible configuration database API (CDB): reads of the committed
 * (running) configuration. Paths follow the syntax described in
 * confd_maapi.h. Calls return CONFD_OK, CONFD_ERR or CONFD_EOF.
 */
#ifndef CONFD_CDB_H
#define CONFD_CDB_H

#include <sys/socket.h>

#include "confd_lib.h"

#ifdef __cplusplus
extern "C" {
#endif

#define cdb_iter_op confd_iter_op
#define cdb_iter_ret confd_iter_ret

enum cdb_db_type {
    CDB_RUNNING = 1,
    CDB_STARTUP = 2,
    CDB_OPERATIONAL = 3,
    CDB_PRE_COMMIT_RUNNING = 4
};

enum cdb_sock_type { CDB_READ_SOCKET, CDB_SUBSCRIPTION_SOCKET, CDB_DATA_SOCKET };

int cdb_connect(int sock, enum cdb_sock_type type, const struct sockaddr* srv, int srv_sz);
int cdb_close(int sock);
int cdb_start_session(int sock, enum cdb_db_type db);
int cdb_end_session(int sock);

/* 1 when the node exists, 0 when it does not, CONFD_ERR on error. */
int cdb_exists(int sock, const char* fmt, ...);
int cdb_get_int32(int sock, int32_t* rval, const char* fmt, ...);

#ifdef __cplusplus
}
#endif

#endif /* CONFD_CDB_H */
