// ipapp-netconfd: the command line to the exit status. Starts netconfd with
// the commit hook and an sshd in front of it, prints the ready line, and
// stops both when asked (SIGINT, SIGTERM) or when one of them ends.
#ifndef IPAPP_TWIN_LAUNCHER_H
#define IPAPP_TWIN_LAUNCHER_H

#include <string>
#include <vector>

namespace ipapp_twin {

// 0 stopped on request, 1 a server failed, 2 bad usage or bad input.
int RunLauncher(const std::vector<std::string>& arguments);

}  // namespace ipapp_twin

#endif
