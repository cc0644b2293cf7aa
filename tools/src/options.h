// The command line of ipapp-validate.
#ifndef IPAPP_VALIDATE_OPTIONS_H
#define IPAPP_VALIDATE_OPTIONS_H

#include <confd_datastore.h>

#include <chrono>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

#include "child_process.h"

namespace ipapp_validate {

enum class OutputFormat { text, json, junit };

// One validation call asked for by name and keypath (--call POINT=KEYPATH).
struct ExplicitCall {
    std::string point;
    std::string keypath;
};

struct Options {
    std::string yang_dir;        // empty: the bundled model
    std::string running_file;    // empty: an empty running configuration
    std::string candidate_file;  // required unless only listing or helping
    std::string plugin_path;     // empty: the bundled plug-in
    std::string log_file;        // empty: stderr
    std::vector<ExplicitCall> calls;
    size_t max_input_size = confdstore::kDefaultMaxFileSize;  // bytes per configuration file
    // A plug-in call that takes longer is killed and reported as crashed.
    std::chrono::seconds call_timeout = kDefaultCallTimeout;
    OutputFormat format = OutputFormat::text;
    bool all = false;
    bool keep_going = false;
    bool quiet = false;  // the text report lists only refused and crashed calls
    bool list_points = false;
    bool timing = false;
    bool debug = true;
    bool trace = false;  // every ConfD API call of the plug-in, a line each on the log
    bool help = false;
    bool version = false;
};

// A command line the tool cannot act on; what() is the one-line reason.
class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Throws UsageError.
Options ParseOptions(const std::vector<std::string>& arguments);

// The --help text: what the tool does, every option, the exit codes.
std::string HelpText();

}  // namespace ipapp_validate

#endif
