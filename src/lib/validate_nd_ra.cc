// The IPv6 router advertisement timers of an l3 or mgmt interface: the
// minimum interval is at most three quarters of the maximum interval, and the
// router lifetime is 0 or longer than the maximum interval. Both handlers
// read the timers straight from the transaction; neither uses the snapshot.
#include "ip_app_valid/confd_api.h"

#include <ipapp.h>

#include <cstring>
#include <string>

#include "ip_app_valid.h"
#include "ip_app_valid/validate_logger.h"
#include "transaction_context.h"

using ip_application::config_valid::Config;
using ip_application::config_valid::TransactionHandle;
using ip_application::config_valid::ValidateLogger;

namespace {

constexpr const char* kInvalidInterface = "invalid interface being handled by IP-App validation";
constexpr const char* kNoMaxInterval = "fail to get maximum router advertisement interval value";
constexpr const char* kNoMinInterval = "fail to get minimum router advertisement interval value";
constexpr const char* kNoLifetime = "fail to get router advertisement lifetime value";
constexpr const char* kIntervalTooLong =
    "Minimum interval must be no greater than maximum interval * 0.75";
constexpr const char* kLifetimeTooShort =
    "Lifetime must be greater than maximum router advertisement interval";

// The minimum interval may be at most this share of the maximum interval.
constexpr double kMinIntervalRatio = 0.75;

// The ra container of an interface.
struct RaLocation {
    bool mgmt;
    std::string base_path;  // ".../ipv6/nd/ra/", ready for a leaf name
};

// Builds the location from the interface's key and its list's tag, which a
// handler takes from the keypath's elements 3 and 4; false for an interface
// kind that has no router advertisement timers (the caller refuses it).
bool LocateRa(const char* key, u_int32_t list_tag, RaLocation& location) {
    const char* prefix = nullptr;
    if (list_tag == ipapp_mgmt) {
        prefix = "mgmt{";
    } else if (list_tag == ipapp_l3) {
        prefix = "l3{";
    } else {
        return false;
    }
    location.mgmt = list_tag == ipapp_mgmt;
    location.base_path = std::string("/config/interface/") + prefix +
                         std::string(key, std::strlen(key)) + "}/ipv6/nd/ra/";
    return true;
}

// The MAAPI session the handler reads the transaction through.
struct Transaction {
    int32_t sock;
    int thandle;

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

// True when neither timer exists; the rule then has nothing to compare and
// says so in the debug log.
bool NothingToCompare(const Transaction& transaction, const std::string& max_path,
                      const std::string& other_path) {
    if (transaction.Exists(max_path) || transaction.Exists(other_path)) {
        return false;
    }
    ValidateLogger::Log("There is no path for '%s' and '%s'. Skipping validation ...",
                        max_path.c_str(), other_path.c_str());
    return true;
}

}  // namespace

int32_t validate_ipv6_nd_ra_interval(int32_t maapi_sock, confd_trans_ctx* tctx,
                                     confd_hkeypath_t* keypath, confd_value_t*, Config&) {
    const char* key = reinterpret_cast<const char*>(CONFD_GET_BUFPTR(&keypath->v[3][0]));
    const u_int32_t list_tag = CONFD_GET_XMLTAG(&keypath->v[4][0]);
    RaLocation ra;
    if (!LocateRa(key, list_tag, ra)) {
        return Refuse(tctx, kInvalidInterface);
    }
    const std::string max_path = ra.base_path + "max-interval";
    const std::string min_path = ra.base_path + "min-interval";
    const Transaction transaction{maapi_sock, TransactionHandle(*tctx)};
    if (NothingToCompare(transaction, max_path, min_path)) {
        return 0;
    }
    u_int16_t max_interval = 0;
    if (!transaction.ReadU16(max_path, max_interval)) {
        return Refuse(tctx, kNoMaxInterval);
    }
    u_int16_t min_interval = 0;
    if (!transaction.ReadU16(min_path, min_interval)) {
        return Refuse(tctx, kNoMinInterval);
    }
    // Exactly three quarters of the maximum passes: no rounding either way.
    if (static_cast<double>(min_interval) > static_cast<double>(max_interval) * kMinIntervalRatio) {
        return Refuse(tctx, kIntervalTooLong);
    }
    return 0;
}

int32_t validate_ipv6_nd_ra_lifetime(int32_t maapi_sock, confd_trans_ctx* tctx,
                                     confd_hkeypath_t* keypath, confd_value_t*, Config&) {
    const char* key = reinterpret_cast<const char*>(CONFD_GET_BUFPTR(&keypath->v[3][0]));
    const u_int32_t list_tag = CONFD_GET_XMLTAG(&keypath->v[4][0]);
    RaLocation ra;
    if (!LocateRa(key, list_tag, ra)) {
        return Refuse(tctx, kInvalidInterface);
    }
    const std::string max_path = ra.base_path + "max-interval";
    const std::string lifetime_path = ra.base_path + "lifetime";
    const Transaction transaction{maapi_sock, TransactionHandle(*tctx)};
    if (NothingToCompare(transaction, max_path, lifetime_path)) {
        return 0;
    }
    u_int16_t max_interval = 0;
    if (!transaction.ReadU16(max_path, max_interval)) {
        return Refuse(tctx, kNoMaxInterval);
    }
    // The management interface's lifetime is deliberately left unchecked.
    if (ra.mgmt) {
        return 0;
    }
    u_int16_t lifetime = 0;
    if (!transaction.ReadU16(lifetime_path, lifetime)) {
        return Refuse(tctx, kNoLifetime);
    }
    // 0 means "not a default router"; any other lifetime must outlast the
    // maximum interval, and equal is not enough.
    if (lifetime == 0 || max_interval < lifetime) {
        return 0;
    }
    return Refuse(tctx, kLifetimeTooShort);
}
