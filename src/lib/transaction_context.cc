#include "transaction_context.h"

namespace ip_application {
namespace config_valid {

velconfd_t* HostState(const confd_trans_ctx& tctx) {
    return static_cast<velconfd_t*>(tctx.t_opaque);
}

const char* ValidationPointName(const confd_trans_ctx& tctx) {
    const char* name = static_cast<const char*>(tctx.vcb_opaque);
    return name != nullptr ? name : "";
}

int TransactionHandle(const confd_trans_ctx& tctx) {
    return tctx.thandle;
}

}  // namespace config_valid
}  // namespace ip_application
