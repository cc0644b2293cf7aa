#include "launcher_options.h"

#include <cstdlib>

namespace ipapp_twin {
namespace {

void SetOnce(std::string& target, const std::string& name, const std::string& value) {
    if (!target.empty()) {
        throw UsageError(name + " given twice");
    }
    if (value.empty()) {
        throw UsageError(name + " needs a non-empty value");
    }
    target = value;
}

int ParsePort(const std::string& value) {
    char* end = nullptr;
    const long port = std::strtol(value.c_str(), &end, 10);
    if (value.empty() || *end != '\0' || port < 1 || port > 65535) {
        throw UsageError("--port takes a TCP port from 1 to 65535, not '" + value + "'");
    }
    return static_cast<int>(port);
}

void SetValue(LauncherOptions& options, const std::string& name, const std::string& value) {
    if (name == "--running") {
        SetOnce(options.running_file, name, value);
    } else if (name == "--state-dir") {
        SetOnce(options.state_dir, name, value);
    } else if (name == "--yang") {
        SetOnce(options.yang_dir, name, value);
    } else if (name == "--plugin") {
        SetOnce(options.plugin_path, name, value);
    } else if (name == "--port") {
        if (options.port != 0) {
            throw UsageError("--port given twice");
        }
        options.port = ParsePort(value);
    } else {
        throw UsageError("unknown option '" + name + "'");
    }
}

}  // namespace

LauncherOptions ParseLauncherOptions(const std::vector<std::string>& arguments) {
    LauncherOptions options;
    for (size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument == "--no-hook") {
            options.no_hook = true;
        } else if (argument == "--help") {
            options.help = true;
        } else if (argument == "--version") {
            options.version = true;
        } else if (argument.rfind("--", 0) != 0) {
            throw UsageError("unexpected argument '" + argument + "'");
        } else if (const size_t equals = argument.find('='); equals != std::string::npos) {
            SetValue(options, argument.substr(0, equals), argument.substr(equals + 1));
        } else if (i + 1 < arguments.size()) {
            SetValue(options, argument, arguments[++i]);
        } else {
            throw UsageError(argument + " needs a value");
        }
    }
    if (options.help || options.version) {
        return options;
    }
    if (options.running_file.empty() || options.port == 0 || options.state_dir.empty()) {
        throw UsageError("--running, --port and --state-dir are required");
    }
    return options;
}

std::string LauncherHelpText() {
    return "usage: ipapp-netconfd --running FILE --port PORT --state-dir DIR [--yang DIR]\n"
           "                      [--plugin PATH]\n"
           "\n"
           "Serves NETCONF over SSH on 127.0.0.1:PORT with the candidate as target; every\n"
           "<commit> is checked with the validation plug-in, which refuses what the device\n"
           "would refuse. Runs in the foreground until SIGINT or SIGTERM.\n"
           "\n"
           "  --running FILE   the running configuration to start from (XML)\n"
           "  --port PORT      the TCP port of the SSH server on 127.0.0.1\n"
           "  --state-dir DIR  keys, configuration and logs; made on first start. The\n"
           "                   invoking user logs in with the key DIR/client_key\n"
           "  --yang DIR       another model than the bundled one\n"
           "  --plugin PATH    another plug-in than the bundled one\n"
           "  --no-hook        netconfd without the plug-in's check, which commits what\n"
           "                   the device would refuse: only to measure netconfd alone\n"
           "  --help, --version\n"
           "\n"
           "Prints one line beginning with 'ready' once a client can connect.\n";
}

}  // namespace ipapp_twin
