// What the plug-in takes from ConfD's transaction context. These functions
// are the only place that reads its members, so a ConfD release or host
// framework that carries them elsewhere changes only this file.
#ifndef IP_APP_VALID_TRANSACTION_CONTEXT_H
#define IP_APP_VALID_TRANSACTION_CONTEXT_H

#include "ip_app_valid/confd_api.h"

#include <velconfd.h>

namespace ip_application {
namespace config_valid {

// The host's per-transaction state: the host finds the MAAPI socket and the
// library context from it.
velconfd_t* HostState(const confd_trans_ctx& tctx);

// The name of the validation point the callback serves, which the host
// registered as the point's opaque word; "" when there is none.
const char* ValidationPointName(const confd_trans_ctx& tctx);

// The MAAPI transaction handle the host attached for this validation.
int TransactionHandle(const confd_trans_ctx& tctx);

}  // namespace config_valid
}  // namespace ip_application

#endif  // IP_APP_VALID_TRANSACTION_CONTEXT_H
