// The command line of ipapp-netconfd.
#ifndef IPAPP_TWIN_LAUNCHER_OPTIONS_H
#define IPAPP_TWIN_LAUNCHER_OPTIONS_H

#include <stdexcept>
#include <string>
#include <vector>

namespace ipapp_twin {

class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

struct LauncherOptions {
    std::string running_file;
    int port = 0;
    std::string state_dir;
    std::string yang_dir;     // empty: the bundled model
    std::string plugin_path;  // empty: the bundled plug-in
    bool no_hook = false;     // netconfd alone, for comparison
    bool help = false;
    bool version = false;
};

// Throws UsageError with one line saying what is wrong.
LauncherOptions ParseLauncherOptions(const std::vector<std::string>& arguments);

std::string LauncherHelpText();

}  // namespace ipapp_twin

#endif
