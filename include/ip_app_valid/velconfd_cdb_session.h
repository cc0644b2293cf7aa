// The plug-in's CDB read session.
#ifndef IP_APP_VALID_VELCONFD_CDB_SESSION_H
#define IP_APP_VALID_VELCONFD_CDB_SESSION_H

#include "ip_app_valid/confd_api.h"

#include <velconfd_cdb_session_base.h>

class VelConfdCdbSession : public VelConfdCdbSessionBase {
  public:
    using VelConfdCdbSessionBase::VelConfdCdbSessionBase;
    ~VelConfdCdbSession() override;
};

#endif  // IP_APP_VALID_VELCONFD_CDB_SESSION_H
