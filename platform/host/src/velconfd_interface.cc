// The daemon instance: opens connections to the management agent.
#include "velconfd_interface.h"

#include <unistd.h>

#include <confd_lib.h>

VelConfdInterface::VelConfdInterface(const struct sockaddr_in& agent_address)
    : agent_address_(agent_address) {}

VelConfdInterface::~VelConfdInterface() = default;

int VelConfdInterface::CdbConnect(enum cdb_sock_type type) const {
    const int sock = socket(PF_INET, SOCK_STREAM, 0);
    if (sock < 0) {
        return -1;
    }
    const int connected = cdb_connect(
        sock, type, reinterpret_cast<const sockaddr*>(&agent_address_), sizeof agent_address_);
    if (connected != CONFD_OK) {
        close(sock);
        return -1;
    }
    return sock;
}
