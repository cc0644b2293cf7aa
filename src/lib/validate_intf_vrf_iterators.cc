// The iterators of the VRF change rule: maapi_keypath_diff_iterate walks the
// transaction's changes below an interface list and hands each to the
// iterator's IterValidate. An iterator that refuses a change keeps the
// operator's text and stops the walk.
#include "ip_app_valid/confd_api.h"

#include <ipapp.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>

#include "ip_app_valid/generic_config.h"
#include "ip_app_valid/validate_intf_vrf.h"
#include "read_value.h"
#include "transaction_context.h"

using ip_application::config_valid::BufferText;
using ip_application::config_valid::ConfigAddrFamily;
using ip_application::config_valid::GenericConfig;
using ip_application::config_valid::TransactionHandle;

namespace {

// Where the interface kind differs in the OSPFv3 rule: the word that starts
// the operator's text and the prefix of the OSPFv3 entry's interface name.
struct InterfaceKind {
    const char* word;
    const char* ospfv3_name_prefix;
};

constexpr InterfaceKind kLoopback = {"loopback", "loopback-"};
constexpr InterfaceKind kL3 = {"l3", "l3-"};

constexpr const char* kInternalPath = "/internal";

// The access helpers of the configuration readers, reading through the
// iterator's socket and transaction.
class TransactionReads : public GenericConfig {
  public:
    TransactionReads(int32_t maapi_sock, confd_trans_ctx* tctx) { Bind(maapi_sock, tctx); }
    void ReadConfig(ConfigAddrFamily) override {}
};

// The diff iteration callback: state is the iterator that runs the walk.
confd_iter_ret IterateChange(confd_hkeypath_t* kp, confd_iter_op op, confd_value_t* oldv,
                             confd_value_t* newv, void* state) {
    return static_cast<ValidateIntfVrf*>(state)->IterValidate(kp, op, oldv, newv);
}

// True when the OSPFv3 interface list has an entry for the interface, asked
// by XPath below /internal so that no read of the list is needed.
bool ConfiguredInOspfv3(int32_t maapi_sock, int thandle, const InterfaceKind& kind,
                        const std::string& name) {
    char expression[1024] = {};
    snprintf(expression, sizeof expression,
             "ospfv3-interface-l3[ospfv3-pm-if-name='%s%s']/ospfv3-pm-if-name",
             kind.ospfv3_name_prefix, name.c_str());
    char* result = nullptr;
    maapi_xpath_eval_expr(maapi_sock, thandle, expression, &result, nullptr, kInternalPath);
    const bool configured = result != nullptr && result[0] != '\0';
    free(result);
    return configured;
}

// The OSPFv3 rule for one change: setting the vrf leaf of an interface that
// OSPFv3 runs on is refused, whatever the VRF. Returns the operator's text,
// or "" when the change passes. kp is /config/interface/<kind>{name}/vrf.
std::string Ospfv3Conflict(int32_t maapi_sock, int thandle, const InterfaceKind& kind,
                           confd_hkeypath_t* kp, confd_iter_op op, const confd_value_t* newv) {
    if (op != MOP_VALUE_SET) {
        return "";
    }
    if (CONFD_GET_XMLTAG(&kp->v[0][0]) != ipapp_vrf || newv == nullptr) {
        return "";
    }
    const char* key = CONFD_GET_CBUFPTR(&kp->v[1][0]);
    const std::string name = BufferText(key, kp->v[1][0].val.buf.size);
    if (!ConfiguredInOspfv3(maapi_sock, thandle, kind, name)) {
        return "";
    }
    return std::string(kind.word) + " " + name +
           " is configured in OSPFv3 and cannot be associated with a VRF";
}

}  // namespace

ValidateIntfVrf::ValidateIntfVrf(int32_t maapi_sock, confd_trans_ctx* tctx, std::string path)
    : maapi_sock_(maapi_sock), tctx_(tctx), path_(std::move(path)) {}

int32_t ValidateIntfVrf::RunValidation() {
    maapi_keypath_diff_iterate(maapi_sock_, TransactionHandle(*tctx_), IterateChange, 0, this,
                               path_.c_str());
    if (message_.empty()) {
        return 0;
    }
    confd_trans_seterr(tctx_, "%s", message_.c_str());
    return -1;
}

nettypes::IPv4AddrMask ValidateIntfVrf::get_ipv4_addr_mask(const std::string& path) const {
    return TransactionReads(maapi_sock_, tctx_).get_ipv4_addr_mask(path);
}

std::list<std::string> ValidateIntfVrf::get_key_list(const std::string& path) const {
    return TransactionReads(maapi_sock_, tctx_).get_key_list(path);
}

confd_iter_ret ValidateIntfLoVrf::IterValidate(confd_hkeypath_t* kp, confd_iter_op op,
                                               confd_value_t*, confd_value_t* newv) {
    message_ = Ospfv3Conflict(maapi_sock_, TransactionHandle(*tctx_), kLoopback, kp, op, newv);
    return message_.empty() ? ITER_RECURSE : ITER_STOP;
}

confd_iter_ret ValidateIntfL3Vrf::IterValidate(confd_hkeypath_t* kp, confd_iter_op op,
                                               confd_value_t*, confd_value_t* newv) {
    message_ = Ospfv3Conflict(maapi_sock_, TransactionHandle(*tctx_), kL3, kp, op, newv);
    return message_.empty() ? ITER_RECURSE : ITER_STOP;
}

confd_iter_ret ValidateIntfVrfOspf::IterValidate(confd_hkeypath_t*, confd_iter_op, confd_value_t*,
                                                 confd_value_t*) {
    return ITER_RECURSE;
}

confd_iter_ret ValidateIntfVrfOspfv3::IterValidate(confd_hkeypath_t* kp, confd_iter_op op,
                                                   confd_value_t*, confd_value_t*) {
    if (op == MOP_VALUE_SET) {
        static_cast<void>(CONFD_GET_XMLTAG(&kp->v[0][0]));
    }
    return ITER_RECURSE;
}
