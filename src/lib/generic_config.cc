#include "ip_app_valid/generic_config.h"

#include "transaction_context.h"

namespace ip_application {
namespace config_valid {

void GenericConfig::ReadConfigIfNeeded(ConfigAddrFamily family) {
    bool* read = family == ConfigAddrFamily::IPv4   ? &ipv4_read_
                 : family == ConfigAddrFamily::IPv6 ? &ipv6_read_
                                                    : nullptr;
    if (read == nullptr || *read) {
        return;
    }
    ReadConfig(family);
    *read = true;
}

void GenericConfig::Bind(int32_t maapi_sock, confd_trans_ctx* tctx) {
    maapi_sock_ = maapi_sock;
    tctx_ = tctx;
}

int GenericConfig::thandle() const {
    // An unbound reader has no transaction; MAAPI refuses the handle -1, so
    // its reads come back empty instead of touching a null context.
    return tctx_ != nullptr ? TransactionHandle(*tctx_) : -1;
}

}  // namespace config_valid
}  // namespace ip_application
