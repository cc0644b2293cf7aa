#include "ip_app_valid/velconfd_cdb_session.h"

// The base class ends the session and closes the socket.
VelConfdCdbSession::~VelConfdCdbSession() = default;
