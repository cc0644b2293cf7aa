#include "host_transaction.h"

#include <arpa/inet.h>
#include <unistd.h>

#include <confd_maapi.h>

#include <string>

#include "input_error.h"

namespace ipapp_validate {
namespace {

// ConfD's own default: the agent on the loopback address, port 4565. With
// the in-process datastore nothing listens there; the address only names it.
sockaddr_in AgentAddress() {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(4565);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

[[noreturn]] void Fail(const std::string& reason) {
    throw InputError("cannot set up the validation transaction: " + reason);
}

}  // namespace

HostTransaction::HostTransaction(const confdstore::Datastore& datastore)
    : instance_(AgentAddress()) {
    const sockaddr_in address = AgentAddress();
    registration_ = datastore.serve(reinterpret_cast<const sockaddr*>(&address), sizeof address);
    maapi_sock_ = socket(PF_INET, SOCK_STREAM, 0);
    if (maapi_sock_ < 0) {
        Fail("no socket");
    }
    if (maapi_connect(maapi_sock_, reinterpret_cast<const sockaddr*>(&address), sizeof address) !=
        CONFD_OK) {
        const std::string reason = std::string("maapi_connect: ") + confd_lasterr();
        close(maapi_sock_);
        Fail(reason);
    }
    // From here on maapi_close releases the socket.
    tctx_.thandle = maapi_start_trans(maapi_sock_, CONFD_CANDIDATE, CONFD_READ);
    if (tctx_.thandle < 0) {
        const std::string reason = std::string("maapi_start_trans: ") + confd_lasterr();
        maapi_close(maapi_sock_);
        Fail(reason);
    }
    host_state_ = velconfd_create(&instance_, maapi_sock_);
    if (host_state_ == nullptr) {
        maapi_close(maapi_sock_);
        Fail("out of memory");
    }
    tctx_.dbname = CONFD_CANDIDATE;
    tctx_.mode = CONFD_READ;
    tctx_.t_opaque = host_state_;
}

HostTransaction::~HostTransaction() {
    confd_trans_clear_err(&tctx_);
    velconfd_destroy(host_state_);
    maapi_finish_trans(maapi_sock_, tctx_.thandle);
    maapi_close(maapi_sock_);
}

}  // namespace ipapp_validate
