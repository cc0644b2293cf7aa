// A program the launcher starts and stops: its own process group (so that
// stopping it also ends what it forked, such as sshd's session processes),
// its output appended to a log file, the launcher's blocked signals
// unblocked again. Stopped by its process id, never by name.
#ifndef IPAPP_TWIN_SERVER_PROCESS_H
#define IPAPP_TWIN_SERVER_PROCESS_H

#include <sys/types.h>

#include <string>
#include <vector>

namespace ipapp_twin {

class ServerProcess {
  public:
    // Starts arguments[0] (an absolute path) with the environment plus
    // extra_environment ("NAME=value"). Throws std::runtime_error when it
    // cannot be started.
    ServerProcess(std::string name, const std::vector<std::string>& arguments,
                  const std::string& log_file,
                  const std::vector<std::string>& extra_environment = {});
    ~ServerProcess();
    ServerProcess(const ServerProcess&) = delete;
    ServerProcess& operator=(const ServerProcess&) = delete;

    const std::string& name() const { return name_; }

    // False once it has ended; then ending() says how.
    bool Running();
    std::string ending() const { return ending_; }

    // SIGTERM to its process group, SIGKILL after a grace period; reaps it.
    void Stop();

  private:
    void Reaped(int status);

    std::string name_;
    pid_t pid_ = -1;
    std::string ending_;
};

// Runs a program to its end; throws std::runtime_error naming it when it
// cannot be run or does not exit with status 0.
void RunToEnd(const std::vector<std::string>& arguments, const std::string& log_file);

}  // namespace ipapp_twin

#endif
