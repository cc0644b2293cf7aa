// The layer-3 interface name rule: at most 256 l3 interfaces, each named by
// 1 to 60 characters from 0-9, a-z, A-Z, '_' and '-'. The handler reads the
// candidate configuration itself on every call; it does not use the snapshot.
#include "ip_app_valid/confd_api.h"

#include <cstdio>
#include <string>

#include "cursor_walk.h"
#include "ip_app_valid.h"
#include "read_value.h"
#include "transaction_context.h"

using ip_application::config_valid::BufferText;
using ip_application::config_valid::Config;
using ip_application::config_valid::CursorWalk;
using ip_application::config_valid::TransactionHandle;

namespace {

constexpr int kMaxL3Interfaces = 256;
constexpr int kMaxNameLength = 60;
constexpr int kMinNameLength = 1;
constexpr const char* kNameCharacters =
    "0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ-_";

const std::string kL3ListPath = "/config/interface/ipapp:l3";

std::string DecimalText(int number) {
    char text[16] = {};
    snprintf(text, sizeof text, "%d", number);
    return text;
}

std::string TooManyText(int count) {
    return "too many 'interface l3', " + DecimalText(count) + " configured, at most " +
           DecimalText(kMaxL3Interfaces) + " must be configured";
}

// The operator's text when the name breaks a rule; empty when it is fine.
// The length rules come first, so a long name with bad characters is
// reported as too long.
std::string NameFault(const std::string& name) {
    const std::string prefix = "L3 interface name " + name;
    if (name.size() > static_cast<size_t>(kMaxNameLength)) {
        return prefix + " is too long (maximum length: " + DecimalText(kMaxNameLength) +
               " characters)";
    }
    if (name.size() < static_cast<size_t>(kMinNameLength)) {
        return prefix + " is too short (minimum length: " + DecimalText(kMinNameLength) +
               " character)";
    }
    if (name.find_first_not_of(kNameCharacters) != std::string::npos) {
        return prefix + " contains invalid characters (allowed characters: 0-9, a-z, A-Z, _, -)";
    }
    return "";
}

}  // namespace

int32_t validate_intf_l3_name(int32_t maapi_sock, confd_trans_ctx* tctx, confd_hkeypath_t*,
                              confd_value_t*, Config&) {
    const int thandle = TransactionHandle(*tctx);
    // A failed count (CONFD_ERR) is below the limit: the names are still
    // examined.
    const int count = maapi_num_instances(maapi_sock, thandle, kL3ListPath.c_str());
    if (count > kMaxL3Interfaces) {
        confd_trans_seterr(tctx, "%s", TooManyText(count).c_str());
        return -1;
    }
    CursorWalk walk(maapi_sock, thandle, kL3ListPath);
    maapi_cursor& cursor = walk.cursor();
    for (walk.Next(); walk.HasEntry(); walk.Next()) {
        // The key is taken up to its first zero byte.
        const char* key = CONFD_GET_CBUFPTR(&cursor.keys[0]);
        const std::string fault = NameFault(BufferText(key, cursor.keys[0].val.buf.size));
        if (!fault.empty()) {
            confd_trans_seterr(tctx, "%s", fault.c_str());
            return -1;
        }
    }
    return 0;
}
