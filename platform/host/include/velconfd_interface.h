/*
 * The daemon instance a plug-in's transaction belongs to: it knows where the
 * management agent listens and opens connections to it.
 */
#ifndef VELCONFD_INTERFACE_H
#define VELCONFD_INTERFACE_H

#include <netinet/in.h>
#include <sys/socket.h>

#include <confd_cdb.h>

class VelConfdInterface {
  public:
    /* An instance that reaches the agent at the given address. */
    explicit VelConfdInterface(const struct sockaddr_in& agent_address);
    virtual ~VelConfdInterface();

    VelConfdInterface(const VelConfdInterface&) = delete;
    VelConfdInterface& operator=(const VelConfdInterface&) = delete;

    /* A new CDB socket of the given type connected to the agent; -1 on failure. */
    int CdbConnect(enum cdb_sock_type type) const;

    const struct sockaddr_in& AgentAddress() const { return agent_address_; }

  private:
    struct sockaddr_in agent_address_;
};

#endif /* VELCONFD_INTERFACE_H */
