// The four functions the host daemon calls: name, context creation and
// destruction, and the validation callback that dispatches to the handlers.
#include "ip_app_valid/confd_api.h"

#include <velconfd.h>

#include <cstdio>

#include "ip_app_valid.h"
#include "ip_app_valid/config.h"
#include "transaction_context.h"
#include "validation_point_table.h"

using ip_application::config_valid::Config;

namespace {

// The library's name: what get_validation_point reports and the key under
// which the host keeps the library context.
constexpr const char* kLibraryName = "ip_app_validation";

}  // namespace

int lib_init(void** context) {
    if (context == nullptr) {
        return -1;
    }
    *context = new Config();
    return 0;
}

int lib_finish(void** context) {
    if (context == nullptr || *context == nullptr) {
        return 0;
    }
    delete static_cast<Config*>(*context);
    return 0;
}

int get_validation_point(char* name, unsigned size) {
    if (name == nullptr && size != 0) {
        return -1;
    }
    std::snprintf(name, size, "%s", kLibraryName);
    return 0;
}

int validate(confd_trans_ctx* tctx, confd_hkeypath_t* keypath, confd_value_t* newval) {
    using namespace ip_application::config_valid;
    if (tctx == nullptr || keypath == nullptr || newval == nullptr) {
        return -1;
    }
    velconfd_t* host = HostState(*tctx);
    const int maapi_sock = velconfd_maapi_socket_get(host);
    if (maapi_sock < 0) {
        return -1;
    }
    auto* config = static_cast<Config*>(get_lib_context(host, kLibraryName));
    if (config == nullptr) {
        confd_trans_seterr(tctx, "Lib context is null!");
        return -1;
    }
    config->Bind(maapi_sock, tctx);
    ValidationHandler* handler = FindValidationHandler(ValidationPointName(*tctx));
    if (handler == nullptr) {
        return -1;
    }
    return handler(maapi_sock, tctx, keypath, newval, *config);
}
