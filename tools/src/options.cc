#include "options.h"

#include <charconv>
#include <cstdint>
#include <functional>
#include <map>
#include <sstream>

namespace ipapp_validate {
namespace {

using Setter = std::function<void(Options&, const std::string&)>;

struct OptionDefinition {
    const char* name;      // without the leading "--"
    const char* argument;  // nullptr: a flag
    const char* help;
    Setter set;
};

void SetOnce(std::string& target, const std::string& value, const char* name) {
    if (!target.empty()) {
        throw UsageError(std::string("--") + name + " given twice");
    }
    if (value.empty()) {
        throw UsageError(std::string("--") + name + " needs a non-empty value");
    }
    target = value;
}

// The candidate is named by --candidate or by the one positional argument.
void SetCandidate(Options& options, const std::string& file) {
    if (!options.candidate_file.empty()) {
        throw UsageError("more than one candidate configuration: '" + file + "'");
    }
    SetOnce(options.candidate_file, file, "candidate");
}

OutputFormat ParseFormat(const std::string& value) {
    if (value == "text") {
        return OutputFormat::text;
    }
    if (value == "json") {
        return OutputFormat::json;
    }
    if (value == "junit") {
        return OutputFormat::junit;
    }
    throw UsageError("--format takes text, json or junit, not '" + value + "'");
}

ExplicitCall ParseCall(const std::string& value) {
    const size_t equals = value.find('=');
    if (equals == std::string::npos || equals == 0 || equals + 1 == value.size()) {
        throw UsageError("--call takes POINT=KEYPATH, not '" + value + "'");
    }
    return ExplicitCall{value.substr(0, equals), value.substr(equals + 1)};
}

// A byte count, or a count of KiB, MiB or GiB with the suffix K, M or G.
size_t ParseSize(const std::string& value) {
    static const std::map<std::string, unsigned> kShifts = {
        {"", 0}, {"K", 10}, {"M", 20}, {"G", 30}};
    size_t number = 0;
    const char* const end = value.data() + value.size();
    const auto [rest, error] = std::from_chars(value.data(), end, number);
    const auto shift = kShifts.find(std::string(rest, end));
    if (error != std::errc() || number == 0 || shift == kShifts.end() ||
        number > (SIZE_MAX >> 1 >> shift->second)) {
        throw UsageError(
            "--max-input-size takes a positive number of bytes with K, M or G or "
            "none, not '" +
            value + "'");
    }
    return number << shift->second;
}

// Whole seconds, at least one (a gate must not be told to wait forever) and
// at most a day.
std::chrono::seconds ParseTimeout(const std::string& value) {
    constexpr unsigned kMostSeconds = 24 * 60 * 60;
    unsigned seconds = 0;
    const char* end = value.data() + value.size();
    const auto [parsed_to, error] = std::from_chars(value.data(), end, seconds);
    if (error != std::errc() || parsed_to != end || seconds < 1 || seconds > kMostSeconds) {
        throw UsageError("--timeout takes whole seconds from 1 to " + std::to_string(kMostSeconds) +
                         ", not '" + value + "'");
    }
    return std::chrono::seconds(seconds);
}

const std::vector<OptionDefinition>& OptionTable() {
    static const std::vector<OptionDefinition> table = {
        {"candidate", "FILE", "the candidate configuration (or give FILE as the only argument)",
         [](Options& o, const std::string& v) { SetCandidate(o, v); }},
        {"running", "FILE", "the running configuration (default: empty)",
         [](Options& o, const std::string& v) { SetOnce(o.running_file, v, "running"); }},
        {"yang", "DIR", "the directory of the YANG modules (default: the bundled model)",
         [](Options& o, const std::string& v) { SetOnce(o.yang_dir, v, "yang"); }},
        {"plugin", "PATH", "the validation plug-in to load (default: the bundled one)",
         [](Options& o, const std::string& v) { SetOnce(o.plugin_path, v, "plugin"); }},
        {"all", nullptr, "fire every validation point, changed or not",
         [](Options& o, const std::string&) { o.all = true; }},
        {"call", "POINT=KEYPATH",
         "fire only this point with this keypath, e.g. "
         "validate_ipv6_nd_ra_interval=/config/interface/l3{5}/ipv6/nd/ra (repeatable)",
         [](Options& o, const std::string& v) { o.calls.push_back(ParseCall(v)); }},
        {"keep-going", nullptr, "run every fired point and list every refusal",
         [](Options& o, const std::string&) { o.keep_going = true; }},
        {"timeout", "SECONDS",
         "kill a plug-in call that has not returned after SECONDS and report it as crashed "
         "(default: 60)",
         [](Options& o, const std::string& v) { o.call_timeout = ParseTimeout(v); }},
        {"format", "text|json|junit",
         "the report's form: text, one JSON document, or one JUnit XML document with a test "
         "case per validation call (default: text)",
         [](Options& o, const std::string& v) { o.format = ParseFormat(v); }},
        {"quiet", nullptr,
         "list only the refused and crashed calls, then the summary (text report only)",
         [](Options& o, const std::string&) { o.quiet = true; }},
        {"list-points", nullptr, "list the model's validation points and their rules, then exit",
         [](Options& o, const std::string&) { o.list_points = true; }},
        {"max-input-size", "SIZE",
         "refuse a configuration file longer than SIZE bytes (K, M, G: KiB, MiB, GiB; "
         "default: 512M)",
         [](Options& o, const std::string& v) { o.max_input_size = ParseSize(v); }},
        {"log", "FILE", "append fault reports, debug and trace lines to FILE instead of stderr",
         [](Options& o, const std::string& v) { SetOnce(o.log_file, v, "log"); }},
        {"no-debug", nullptr, "leave out the plug-in's debug lines",
         [](Options& o, const std::string&) { o.debug = false; }},
        {"trace", nullptr,
         "log every ConfD API call the plug-in makes, a \"trace: \" line each: the function, "
         "the path, the result (the value, or the error code and text)",
         [](Options& o, const std::string&) { o.trace = true; }},
        {"timing", nullptr, "add the time spent in the tool and in the plug-in to the report",
         [](Options& o, const std::string&) { o.timing = true; }},
        {"help", nullptr, "show this help and exit",
         [](Options& o, const std::string&) { o.help = true; }},
        {"version", nullptr, "show the version and exit",
         [](Options& o, const std::string&) { o.version = true; }},
    };
    return table;
}

const OptionDefinition& FindOption(const std::string& name) {
    for (const OptionDefinition& option : OptionTable()) {
        if (name == option.name) {
            return option;
        }
    }
    throw UsageError("unknown option '--" + name + "'");
}

void CheckCombination(const Options& options) {
    if (options.quiet && options.format != OutputFormat::text) {
        throw UsageError("--quiet applies to the text report only");
    }
    if (options.list_points && options.format == OutputFormat::junit) {
        throw UsageError("--list-points has no JUnit form: use text or json");
    }
    if (options.help || options.version || options.list_points) {
        return;
    }
    if (options.candidate_file.empty()) {
        throw UsageError("no candidate configuration given");
    }
    if (options.all && !options.calls.empty()) {
        throw UsageError("--all and --call exclude each other");
    }
}

}  // namespace

Options ParseOptions(const std::vector<std::string>& arguments) {
    Options options;
    bool options_ended = false;
    for (size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (options_ended || argument.size() < 2 || argument.compare(0, 1, "-") != 0) {
            SetCandidate(options, argument);
            continue;
        }
        if (argument == "--") {
            options_ended = true;
            continue;
        }
        if (argument == "-h") {
            options.help = true;
            continue;
        }
        if (argument.compare(0, 2, "--") != 0) {
            throw UsageError("unknown option '" + argument + "'");
        }
        const size_t equals = argument.find('=');
        const OptionDefinition& option = FindOption(argument.substr(2, equals - 2));
        if (option.argument == nullptr) {
            if (equals != std::string::npos) {
                throw UsageError(argument.substr(0, equals) + " takes no value");
            }
            option.set(options, "");
        } else if (equals != std::string::npos) {
            option.set(options, argument.substr(equals + 1));
        } else if (i + 1 < arguments.size()) {
            option.set(options, arguments[++i]);
        } else {
            throw UsageError(argument + " needs a value: " + option.argument);
        }
    }
    CheckCombination(options);
    return options;
}

std::string HelpText() {
    std::ostringstream text;
    text << "Usage: ipapp-validate [OPTION]... [--candidate] FILE\n"
            "Checks a candidate configuration against a running one with the validation\n"
            "plug-in a device loads. The validation points whose data differs between\n"
            "running and candidate fire, in the model's order; the first refusal ends the\n"
            "run, as a commit would. Configurations are XML (.xml) or JSON (.json).\n"
            "\nOptions:\n";
    for (const OptionDefinition& option : OptionTable()) {
        std::string head = std::string("  --") + option.name;
        if (option.argument != nullptr) {
            head += std::string(" ") + option.argument;
        }
        text << head << "\n      " << option.help << "\n";
    }
    text << "  -h  the same as --help\n"
            "\nFault reports (\"fault: \"), debug lines (\"debug: \") and trace lines\n"
            "(\"trace: \") of the plug-in go to stderr or the --log file, in the order the\n"
            "plug-in made them, never into the report on stdout.\n"
            "\nExit status: 0 accepted, 1 refused, 2 bad usage, bad input or a failure of\n"
            "the tool itself (out of memory), 3 the plug-in crashed (an assertion, a\n"
            "signal, an exception out of validate or a call that ran past --timeout).\n";
    return text.str();
}

}  // namespace ipapp_validate
