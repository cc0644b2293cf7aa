/*
 * A CDB read session of one datastore, opened on construction and closed on
 * destruction. Plug-ins derive their own session classes from it.
 */
#ifndef VELCONFD_CDB_SESSION_BASE_H
#define VELCONFD_CDB_SESSION_BASE_H

#include <confd_cdb.h>

class VelConfdInterface;

class VelConfdCdbSessionBase {
  public:
    /*
     * Connects a CDB read socket through the instance. When start_session is
     * true the session on db is started at once; otherwise Start() does it.
     * Failures leave Socket() negative; reads on it then fail with CONFD_ERR.
     */
    VelConfdCdbSessionBase(VelConfdInterface* instance, enum cdb_db_type db, bool start_session);
    virtual ~VelConfdCdbSessionBase();

    VelConfdCdbSessionBase(const VelConfdCdbSessionBase&) = delete;
    VelConfdCdbSessionBase& operator=(const VelConfdCdbSessionBase&) = delete;

    /* Starts the session if it is not started; CONFD_OK or CONFD_ERR. */
    int Start();
    /* The CDB socket, or -1 when no connection could be made. */
    int Socket() const { return socket_; }
    bool Started() const { return started_; }

  private:
    int socket_;
    enum cdb_db_type db_;
    bool started_;
};

#endif /* VELCONFD_CDB_SESSION_BASE_H */
