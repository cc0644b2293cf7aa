/*
 * The daemon's side of the host framework: it creates the velconfd_t that
 * travels with each validation transaction and records the context of each
 * loaded plug-in under the plug-in's library name.
 */
#ifndef VELCONFD_HOST_H
#define VELCONFD_HOST_H

#include "velconfd.h"

#ifdef __cplusplus
extern "C" {
#endif

/*
 * A host state for transactions read through maapi_sock, served by instance.
 * Either may be absent (negative socket, NULL instance). NULL when out of memory.
 */
velconfd_t* velconfd_create(VelConfdInterface* instance, int maapi_sock);
void velconfd_destroy(velconfd_t* velconfd);

/*
 * Records (or with NULL removes) the context of the library named lib_name,
 * replacing an earlier one. The name is copied; names are matched exactly.
 * Returns 0, or -1 for a NULL velconfd or name or when out of memory.
 */
int velconfd_set_lib_context(velconfd_t* velconfd, const char* lib_name, void* context);

#ifdef __cplusplus
}
#endif

#endif /* VELCONFD_HOST_H */
