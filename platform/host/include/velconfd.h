/*
 * Host framework of configuration-validation plug-ins (libvelconfd).
 *
 * The daemon keeps one velconfd_t per validation transaction and hands it to
 * plug-ins through the transaction context (tctx->t_opaque). From it a
 * plug-in finds the MAAPI socket of the transaction, its own library context
 * (by library name) and the daemon's instance, which opens CDB sessions.
 */
#ifndef VELCONFD_H
#define VELCONFD_H

#include <stdarg.h>

#ifdef __cplusplus
class VelConfdInterface;
extern "C" {
#else
typedef struct VelConfdInterface VelConfdInterface;
#endif

typedef struct velconfd velconfd_t;

/* The MAAPI socket attached to the transaction; negative when there is none. */
int velconfd_maapi_socket_get(velconfd_t* velconfd);

/* The context that the named library's lib_init produced; NULL when unknown. */
void* get_lib_context(velconfd_t* velconfd, const char* lib_name);

/* The daemon instance that serves the transaction; NULL when unknown. */
VelConfdInterface* velconfd_instance_get(velconfd_t* velconfd);

#ifdef __cplusplus
}
#endif

#endif /* VELCONFD_H */
