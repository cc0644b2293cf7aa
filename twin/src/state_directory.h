// What the twin keeps in its state directory: the SSH host key, the client
// key pair the invoking user logs in with, the configurations of sshd and
// netconfd's startup copy of the running configuration, the socket between
// them and the servers' logs. Keys are made on first start and kept; the
// rest is written anew at every start (netconfd rewrites its startup file
// after every commit, so it always starts from a copy).
#ifndef IPAPP_TWIN_STATE_DIRECTORY_H
#define IPAPP_TWIN_STATE_DIRECTORY_H

#include <string>

namespace ipapp_twin {

struct StatePaths {
    std::string directory;
    std::string host_key;
    std::string client_key;
    std::string authorized_keys;
    std::string sshd_config;
    std::string startup;
    std::string socket;
    std::string netconfd_log;
    std::string sshd_log;
};

StatePaths StatePathsIn(const std::string& directory);

// Makes the directory and what is missing in it. running_file is the
// running configuration in the model's file form. Throws std::runtime_error
// naming the file that could not be made.
void PrepareStateDirectory(const StatePaths& paths, const std::string& running_file, int port,
                           const std::string& user);

}  // namespace ipapp_twin

#endif
