// The IPv6 router advertisement timers of an l3 or mgmt interface: the
// minimum interval is at most three quarters of the maximum interval, and the
// router lifetime is 0 or longer than the maximum interval. Both handlers
// read the timers straight from the transaction; neither uses the snapshot.
#include "ip_app_valid/confd_api.h"

#include <ipapp.h>

#include <cstring>
#include <string>

#include "invalid_interface_text.h"
#include "ip_app_valid.h"
#include "ip_app_valid/validate_logger.h"
#include "transaction_context.h"

using ip_application::config_valid::Config;
using ip_application::config_valid::kInvalidInterfaceText;
using ip_application::config_valid::TransactionHandle;
using ip_application::config_valid::ValidateLogger;

namespace {

constexpr const char* kNoMaxInterval = "fail to get maximum router advertisement interval value";
constexpr const char* kNoMinInterval = "fail to get minimum router advertisement interval value";
constexpr const char* kNoLifetime = "fail to get router advertisement lifetime value";
constexpr const char* kIntervalTooLong =
    "Minimum interval must be no greater than maximum interval * 0.75";
constexpr const char* kLifetimeTooShort =
    "Lifetime must be greater than maximum router advertisement interval";

// The minimum interval may be at most this share of the maximum interval.
constexpr double kMinIntervalRatio = 0.75;

// The MAAPI session the handler reads the transaction through.
struct Transaction {
    int32_t sock = -1;
    int thandle = -1;

    bool Exists(const std::string& path) const {
        return maapi_exists(sock, thandle, "%s", path.c_str()) == 1;
    }
    bool ReadU16(const std::string& path, u_int16_t& value) const {
        return maapi_get_u_int16_elem(sock, thandle, &value, "%s", path.c_str()) == CONFD_OK;
    }
};

int32_t Refuse(confd_trans_ctx* tctx, const char* text) {
    confd_trans_seterr(tctx, "%s", text);
    return -1;
}

// The ra container's path of the interface with this key in the list with
// this tag, ready for a leaf name; "" for an interface kind that has no
// router advertisement timers.
std::string RaPath(const char* key, u_int32_t list_tag) {
    const char* prefix = nullptr;
    if (list_tag == ipapp_mgmt) {
        prefix = "mgmt{";
    } else if (list_tag == ipapp_l3) {
        prefix = "l3{";
    } else {
        return std::string();
    }
    return std::string("/config/interface/") + prefix + std::string(key, std::strlen(key)) +
           "}/ipv6/nd/ra/";
}

// What both rules read first: the maximum interval, and where the timer to
// compare it with is.
struct RaTimers {
    Transaction transaction;
    bool mgmt = false;
    std::string other_path;
    u_int16_t max_interval = 0;
};

// Locates the timers of the interface the keypath's elements 3 (key) and 4
// (list tag) name, skips the rule with a debug line when neither the maximum
// interval nor the other timer exists, and reads the maximum interval.
// Returns true when the rule goes on; otherwise result is the handler's
// answer.
bool StartRule(int32_t maapi_sock, confd_trans_ctx* tctx, const char* key, u_int32_t list_tag,
               const char* other_leaf, RaTimers& timers, int32_t& result) {
    const std::string ra_path = RaPath(key, list_tag);
    if (ra_path.empty()) {
        result = Refuse(tctx, kInvalidInterfaceText);
        return false;
    }
    timers.transaction = Transaction{maapi_sock, TransactionHandle(*tctx)};
    timers.mgmt = list_tag == ipapp_mgmt;
    timers.other_path = ra_path + other_leaf;
    const std::string max_path = ra_path + "max-interval";
    if (!timers.transaction.Exists(max_path) && !timers.transaction.Exists(timers.other_path)) {
        ValidateLogger::Log("There is no path for '%s' and '%s'. Skipping validation ...",
                            max_path.c_str(), timers.other_path.c_str());
        result = 0;
        return false;
    }
    if (!timers.transaction.ReadU16(max_path, timers.max_interval)) {
        result = Refuse(tctx, kNoMaxInterval);
        return false;
    }
    return true;
}

}  // namespace

int32_t validate_ipv6_nd_ra_interval(int32_t maapi_sock, confd_trans_ctx* tctx,
                                     confd_hkeypath_t* keypath, confd_value_t*, Config&) {
    const char* key = reinterpret_cast<const char*>(CONFD_GET_BUFPTR(&keypath->v[3][0]));
    const u_int32_t list_tag = CONFD_GET_XMLTAG(&keypath->v[4][0]);
    RaTimers timers;
    int32_t result = 0;
    if (!StartRule(maapi_sock, tctx, key, list_tag, "min-interval", timers, result)) {
        return result;
    }
    u_int16_t min_interval = 0;
    if (!timers.transaction.ReadU16(timers.other_path, min_interval)) {
        return Refuse(tctx, kNoMinInterval);
    }
    // Exactly three quarters of the maximum passes: no rounding either way.
    if (static_cast<double>(min_interval) >
        static_cast<double>(timers.max_interval) * kMinIntervalRatio) {
        return Refuse(tctx, kIntervalTooLong);
    }
    return 0;
}

int32_t validate_ipv6_nd_ra_lifetime(int32_t maapi_sock, confd_trans_ctx* tctx,
                                     confd_hkeypath_t* keypath, confd_value_t*, Config&) {
    const char* key = reinterpret_cast<const char*>(CONFD_GET_BUFPTR(&keypath->v[3][0]));
    const u_int32_t list_tag = CONFD_GET_XMLTAG(&keypath->v[4][0]);
    RaTimers timers;
    int32_t result = 0;
    if (!StartRule(maapi_sock, tctx, key, list_tag, "lifetime", timers, result)) {
        return result;
    }
    // The management interface's lifetime is deliberately left unchecked.
    if (timers.mgmt) {
        return 0;
    }
    u_int16_t lifetime = 0;
    if (!timers.transaction.ReadU16(timers.other_path, lifetime)) {
        return Refuse(tctx, kNoLifetime);
    }
    // 0 means "not a default router"; any other lifetime must outlast the
    // maximum interval, and equal is not enough.
    if (lifetime == 0 || timers.max_interval < lifetime) {
        return 0;
    }
    return Refuse(tctx, kLifetimeTooShort);
}
