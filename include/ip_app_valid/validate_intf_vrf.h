// Iterators over a transaction's changes that refuse a VRF on interfaces
// configured in OSPFv3.
#ifndef IP_APP_VALID_VALIDATE_INTF_VRF_H
#define IP_APP_VALID_VALIDATE_INTF_VRF_H

#include "ip_app_valid/confd_api.h"

#include <nettypes/ipv4_addr_mask.h>

#include <cstdint>
#include <list>
#include <string>

class ValidateIntfVrf {
  public:
    ValidateIntfVrf(int32_t maapi_sock, confd_trans_ctx* tctx, std::string path);
    virtual ~ValidateIntfVrf() = default;

    // Called for every change below the path; a refusal stores its text.
    virtual confd_iter_ret IterValidate(confd_hkeypath_t* kp, confd_iter_op op, confd_value_t* oldv,
                                        confd_value_t* newv) = 0;

    // Walks the changes below the path; 0 accepts, -1 refuses after setting
    // the transaction's error text.
    int32_t RunValidation();

    nettypes::IPv4AddrMask get_ipv4_addr_mask(const std::string& path) const;
    std::list<std::string> get_key_list(const std::string& path) const;

    const std::string& message() const { return message_; }

  protected:
    int32_t maapi_sock_;
    confd_trans_ctx* tctx_;
    std::string path_;
    std::string message_;
};

class ValidateIntfLoVrf : public ValidateIntfVrf {
  public:
    using ValidateIntfVrf::ValidateIntfVrf;
    confd_iter_ret IterValidate(confd_hkeypath_t* kp, confd_iter_op op, confd_value_t* oldv,
                                confd_value_t* newv) override;
};

class ValidateIntfL3Vrf : public ValidateIntfVrf {
  public:
    using ValidateIntfVrf::ValidateIntfVrf;
    confd_iter_ret IterValidate(confd_hkeypath_t* kp, confd_iter_op op, confd_value_t* oldv,
                                confd_value_t* newv) override;
};

class ValidateIntfVrfOspf : public ValidateIntfVrf {
  public:
    using ValidateIntfVrf::ValidateIntfVrf;
    confd_iter_ret IterValidate(confd_hkeypath_t* kp, confd_iter_op op, confd_value_t* oldv,
                                confd_value_t* newv) override;
};

class ValidateIntfVrfOspfv3 : public ValidateIntfVrf {
  public:
    using ValidateIntfVrf::ValidateIntfVrf;
    confd_iter_ret IterValidate(confd_hkeypath_t* kp, confd_iter_op op, confd_value_t* oldv,
                                confd_value_t* newv) override;
};

#endif  // IP_APP_VALID_VALIDATE_INTF_VRF_H
