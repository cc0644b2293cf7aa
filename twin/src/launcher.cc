#include "launcher.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <pwd.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <confd_datastore.h>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <stdexcept>

#include "bundled_files.h"
#include "launcher_options.h"
#include "message_line.h"
#include "model_modules.h"
#include "plugin_library.h"
#include "server_process.h"
#include "state_directory.h"
#include "twin_environment.h"

namespace ipapp_twin {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kStopped = 0;
constexpr int kServerFailed = 1;
constexpr int kBadInput = 2;
constexpr auto kStartTimeout = std::chrono::seconds(30);
constexpr const char* kNetconfd = "/usr/sbin/netconfd";
constexpr const char* kSshd = "/usr/sbin/sshd";
constexpr const char* kYumaModules = "/usr/share/yuma/modules";
// sshd's privilege separation directory, when it runs as root.
constexpr const char* kSshdRunDirectory = "/run/sshd";

class ServerFailure : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

void ErrorLine(const std::string& message) {
    std::fprintf(stderr, "ipapp-netconfd: %s\n", ipapp_validate::MessageLine(message).c_str());
}

struct Files {
    std::string yang_dir;
    std::string plugin;
    std::string twin_dir;  // the hook library and its module
};

Files FindFiles(const LauncherOptions& options) {
    return Files{
        options.yang_dir.empty() ? ipapp_validate::BundledYangDirectory() : options.yang_dir,
        options.plugin_path.empty() ? ipapp_validate::BundledPlugin() : options.plugin_path,
        ipapp_validate::FindBundled("commit hook",
                                    {IPAPP_TWIN_INSTALLED_DIR, IPAPP_TWIN_BUILD_TREE_DIR},
                                    "/libipapp-twin.so", "an installed ipapp-netconfd")};
}

// Bad input shows before any server starts: the model, the running
// configuration against it, and the plug-in's library.
void CheckInputs(const Files& files, const LauncherOptions& options) {
    const confdstore::Schema schema = confdstore::Schema::load(files.yang_dir);
    confdstore::Datastore datastore(schema);
    datastore.load_running(options.running_file);
    const ipapp_validate::PluginLibrary plugin(files.plugin);
}

std::string UserName() {
    const passwd* entry = getpwuid(geteuid());
    if (entry == nullptr) {
        throw std::runtime_error("cannot find the name of the invoking user");
    }
    return entry->pw_name;
}

std::vector<std::string> NetconfdArguments(const Files& files, const StatePaths& paths,
                                           const LauncherOptions& options) {
    std::vector<std::string> arguments{
        kNetconfd,
        "--config=/dev/null",
        "--target=candidate",
        "--port=" + std::to_string(options.port),
        "--modpath=" + files.yang_dir + ":" + files.twin_dir + ":" + kYumaModules,
        "--runpath=" + files.twin_dir,
        "--startup=" + paths.startup,
        "--ncxserver-sockname=" + paths.socket,
        "--log=" + paths.netconfd_log,
        "--log-append",
        "--access-control=off"};
    if (!options.no_hook) {
        arguments.push_back("--module=ipapp-twin");
    }
    for (const std::string& module : ModelModules(files.yang_dir)) {
        arguments.push_back("--module=" + module);
    }
    return arguments;
}

// Where the hook finds the model and the plug-in; in a sanitizer build also
// the sanitizers' runtimes, which the hook needs and netconfd lacks (netconfd
// itself is not checked for leaks).
std::vector<std::string> NetconfdEnvironment(const Files& files) {
    std::vector<std::string> environment{std::string(kYangDirVariable) + "=" + files.yang_dir,
                                         std::string(kPluginVariable) + "=" + files.plugin};
    const std::string preload = IPAPP_TWIN_NETCONFD_PRELOAD;
    if (!preload.empty()) {
        environment.push_back("LD_PRELOAD=" + preload);
        environment.push_back("ASAN_OPTIONS=detect_leaks=0");
    }
    return environment;
}

bool IsSocket(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && S_ISSOCK(status.st_mode);
}

sockaddr_in LoopbackAddress(int port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

// connect() or bind() on a TCP socket at 127.0.0.1:port: whether it worked;
// errno tells why not.
template <typename Operation>
bool OnLoopbackPort(int port, Operation operation) {
    const int fd = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_in address = LoopbackAddress(port);
    const bool worked =
        fd >= 0 && operation(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    const int error = errno;
    if (fd >= 0) {
        close(fd);
    }
    errno = error;
    return worked;
}

bool Accepts(int port) {
    return OnLoopbackPort(port, connect);
}

// Checked before anything starts: with another server on the port, the
// ready line would name a server that is not the twin.
void RequireFreePort(int port) {
    if (!OnLoopbackPort(port, bind)) {
        throw std::runtime_error("127.0.0.1:" + std::to_string(port) +
                                 " cannot be used: " + strerror(errno));
    }
}

sigset_t StopSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    return signals;
}

// Waits up to wait for SIGINT or SIGTERM; throws ServerFailure when a
// server has ended.
bool StopRequested(std::vector<ServerProcess*> servers, std::chrono::milliseconds wait) {
    const sigset_t signals = StopSignals();
    const timespec timeout{0, static_cast<long>(wait.count()) * 1000000L};
    if (sigtimedwait(&signals, nullptr, &timeout) > 0) {
        return true;
    }
    for (ServerProcess* server : servers) {
        if (!server->Running()) {
            throw ServerFailure(server->name() + " " + server->ending());
        }
    }
    return false;
}

// Waits for ready() while the servers run; false when a stop was requested.
template <typename Ready>
bool AwaitReady(const std::vector<ServerProcess*>& servers, const char* what, Ready ready) {
    const Clock::time_point deadline = Clock::now() + kStartTimeout;
    while (!ready()) {
        if (StopRequested(servers, std::chrono::milliseconds(20))) {
            return false;
        }
        if (Clock::now() > deadline) {
            throw ServerFailure(std::string(what) + " did not become ready within 30 s");
        }
    }
    return true;
}

int Serve(const LauncherOptions& options, const Files& files, const StatePaths& paths) {
    const std::string user = UserName();
    RequireFreePort(options.port);
    PrepareStateDirectory(paths, options.running_file, options.port, user);
    if (geteuid() == 0) {
        mkdir(kSshdRunDirectory, 0755);
    }
    try {
        ServerProcess netconfd("netconfd", NetconfdArguments(files, paths, options),
                               paths.netconfd_log, NetconfdEnvironment(files));
        if (!AwaitReady({&netconfd}, "netconfd", [&] { return IsSocket(paths.socket); })) {
            return kStopped;
        }
        ServerProcess sshd("sshd", {kSshd, "-D", "-e", "-f", paths.sshd_config}, paths.sshd_log);
        if (!AwaitReady({&netconfd, &sshd}, "sshd", [&] { return Accepts(options.port); })) {
            return kStopped;
        }
        std::printf("ready: NETCONF over SSH on 127.0.0.1:%d, user %s, key %s\n", options.port,
                    user.c_str(), paths.client_key.c_str());
        std::fflush(stdout);
        while (!StopRequested({&netconfd, &sshd}, std::chrono::milliseconds(200))) {
        }
        return kStopped;
    } catch (const ServerFailure& failure) {
        ErrorLine(std::string(failure.what()) + " (see " + paths.netconfd_log + " and " +
                  paths.sshd_log + ")");
        return kServerFailed;
    }
}

}  // namespace

int RunLauncher(const std::vector<std::string>& arguments) {
    LauncherOptions options;
    try {
        options = ParseLauncherOptions(arguments);
    } catch (const UsageError& error) {
        ErrorLine(std::string(error.what()) + " (see --help)");
        return kBadInput;
    }
    if (options.help || options.version) {
        std::fputs(options.help ? LauncherHelpText().c_str() : "ipapp-netconfd " IPAPP_VERSION "\n",
                   stdout);
        return 0;
    }
    // Blocked before any server starts, so that a stop request waits for
    // sigtimedwait instead of ending the launcher with its servers running.
    const sigset_t signals = StopSignals();
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    try {
        const Files files = FindFiles(options);
        CheckInputs(files, options);
        return Serve(options, files, StatePathsIn(options.state_dir));
    } catch (const std::exception& error) {
        ErrorLine(error.what());
        return kBadInput;
    }
}

}  // namespace ipapp_twin
