// What the daemon sets up around a validation transaction: the datastore
// served at the agent's address, a MAAPI socket with a read transaction on
// the candidate, the host framework's per-transaction state and the
// transaction context a callback receives.
#ifndef IPAPP_VALIDATE_HOST_TRANSACTION_H
#define IPAPP_VALIDATE_HOST_TRANSACTION_H

#include <confd_datastore.h>
#include <velconfd_host.h>
#include <velconfd_interface.h>

namespace ipapp_validate {

class HostTransaction {
  public:
    // Throws InputError when the transaction cannot be set up.
    explicit HostTransaction(const confdstore::Datastore& datastore);
    ~HostTransaction();
    HostTransaction(const HostTransaction&) = delete;
    HostTransaction& operator=(const HostTransaction&) = delete;

    // thandle, t_opaque (the host state) set; the caller sets vcb_opaque per
    // call.
    confd_trans_ctx& context() { return tctx_; }
    velconfd_t* host_state() { return host_state_; }
    int maapi_socket() const { return maapi_sock_; }

  private:
    confdstore::Registration registration_;
    VelConfdInterface instance_;
    int maapi_sock_ = -1;
    velconfd_t* host_state_ = nullptr;
    confd_trans_ctx tctx_{};
};

}  // namespace ipapp_validate

#endif
