// A CDB read session that lives exactly as long as its object.
#include "velconfd_cdb_session_base.h"

#include "velconfd_interface.h"

namespace {

int read_socket_of(VelConfdInterface* instance) {
    return instance != nullptr ? instance->CdbConnect(CDB_READ_SOCKET) : -1;
}

}  // namespace

VelConfdCdbSessionBase::VelConfdCdbSessionBase(VelConfdInterface* instance, enum cdb_db_type db,
                                               bool start_session)
    : socket_(read_socket_of(instance)), db_(db), started_(false) {
    if (start_session) {
        Start();
    }
}

VelConfdCdbSessionBase::~VelConfdCdbSessionBase() {
    if (started_) {
        cdb_end_session(socket_);
    }
    if (socket_ >= 0) {
        cdb_close(socket_);
    }
}

// Without a connection the library refuses the session like any bad socket,
// with CONFD_ERR and its confd_errno.
int VelConfdCdbSessionBase::Start() {
    if (started_) {
        return CONFD_OK;
    }
    const int result = cdb_start_session(socket_, db_);
    started_ = result == CONFD_OK;
    return result;
}
