#include "state_directory.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "server_process.h"

namespace ipapp_twin {
namespace {

constexpr const char* kKeygen = "/usr/bin/ssh-keygen";
constexpr const char* kSubsystem = "/usr/sbin/netconf-subsystem";

bool Exists(const std::string& path) {
    return access(path.c_str(), F_OK) == 0;
}

void MakeDirectory(const std::string& directory) {
    if (mkdir(directory.c_str(), 0700) != 0 && errno != EEXIST) {
        throw std::runtime_error(directory +
                                 ": cannot make the state directory: " + strerror(errno));
    }
}

std::string ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    if (!in) {
        throw std::runtime_error(path + ": cannot read the file");
    }
    return text.str();
}

void WriteFile(const std::string& path, const std::string& text) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << text;
    out.close();
    if (!out) {
        throw std::runtime_error(path + ": cannot write the file");
    }
}

void MakeKeyOnce(const std::string& path, const std::string& log) {
    if (!Exists(path)) {
        RunToEnd({kKeygen, "-q", "-t", "ed25519", "-N", "", "-C", "ipapp-netconfd", "-f", path},
                 log);
    }
}

// The running configuration wrapped as netconfd's startup file: the model's
// top-level nodes inside NETCONF's <config>.
std::string StartupText(const std::string& running_file) {
    std::string data = ReadFile(running_file);
    if (data.compare(0, 5, "<?xml") == 0) {
        data.erase(0, data.find("?>") + 2);
    }
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<config xmlns=\"urn:ietf:params:xml:ns:netconf:base:1.0\">\n" +
           data + "\n</config>\n";
}

// sshd on the loopback address only, public-key logins of one user with the
// twin's client key, and the netconf subsystem to this twin's netconfd. The
// port the client reached must be one netconfd was given, or it refuses
// the session.
std::string SshdConfig(const StatePaths& paths, int port, const std::string& user) {
    std::ostringstream config;
    config << "ListenAddress 127.0.0.1:" << port << "\n"
           << "HostKey " << paths.host_key << "\n"
           << "PidFile none\n"
           << "AuthorizedKeysFile " << paths.authorized_keys << "\n"
           << "AllowUsers " << user << "\n"
           << "PubkeyAuthentication yes\n"
           << "PasswordAuthentication no\n"
           << "KbdInteractiveAuthentication no\n"
           << "PermitRootLogin prohibit-password\n"
           << "UsePAM no\n"
           << "StrictModes no\n"
           << "Subsystem netconf " << kSubsystem << " --ncxserver-sockname=" << port << "@"
           << paths.socket << "\n";
    return config.str();
}

}  // namespace

StatePaths StatePathsIn(const std::string& directory) {
    const std::string base = directory + "/";
    return StatePaths{directory,
                      base + "ssh_host_ed25519_key",
                      base + "client_key",
                      base + "authorized_keys",
                      base + "sshd_config",
                      base + "startup.xml",
                      base + "ncxserver.sock",
                      base + "netconfd.log",
                      base + "sshd.log"};
}

void PrepareStateDirectory(const StatePaths& paths, const std::string& running_file, int port,
                           const std::string& user) {
    MakeDirectory(paths.directory);
    MakeKeyOnce(paths.host_key, paths.sshd_log);
    MakeKeyOnce(paths.client_key, paths.sshd_log);
    WriteFile(paths.authorized_keys, ReadFile(paths.client_key + ".pub"));
    WriteFile(paths.sshd_config, SshdConfig(paths, port, user));
    WriteFile(paths.startup, StartupText(running_file));
    unlink(paths.socket.c_str());
}

}  // namespace ipapp_twin
