// The whole ipapp-validate run on a generated running/candidate pair against
// libyang's own parse and validation of the same two files, each as a
// process of its own. The time a run spends inside the plug-in (which the
// tool reports with --timing) is taken out: the manual time is the tool's own
// work. Counters: the data nodes of each file, the tool's own time, the
// plug-in's time, libyang's time and their ratio.
#include <benchmark/benchmark.h>
#include <stdlib.h>
#include <sys/wait.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>

#include "config_generator.h"

namespace {

using Clock = std::chrono::steady_clock;

struct Timed {
    double seconds = 0;
    int status = -1;
    std::string out;
};

std::string Quoted(const std::string& text) {
    return "'" + text + "'";
}

Timed RunTimed(const std::string& command) {
    Timed timed;
    const Clock::time_point start = Clock::now();
    FILE* pipe = popen((command + " 2>/dev/null").c_str(), "r");
    if (pipe == nullptr) {
        throw std::runtime_error("cannot run " + command);
    }
    char buffer[4096];
    for (size_t n; (n = fread(buffer, 1, sizeof buffer, pipe)) > 0;) {
        timed.out.append(buffer, n);
    }
    const int status = pclose(pipe);
    timed.seconds = std::chrono::duration<double>(Clock::now() - start).count();
    timed.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return timed;
}

double JsonNumber(const std::string& json, const std::string& member) {
    const size_t at = json.find("\"" + member + "\": ");
    if (at == std::string::npos) {
        throw std::runtime_error("no " + member + " in the report:\n" + json);
    }
    return std::strtod(json.c_str() + at + member.size() + 4, nullptr);
}

// One generated pair per size, written once and removed at exit.
const ipapp_bench::GeneratedPair& PairOf(size_t units) {
    struct Generated {
        std::string directory;
        ipapp_bench::GeneratedPair pair;
        ~Generated() { std::filesystem::remove_all(directory); }
    };
    static std::map<size_t, std::unique_ptr<Generated>> pairs;
    auto& generated = pairs[units];
    if (!generated) {
        char directory[] = "/tmp/ipapp-bench-XXXXXX";
        if (mkdtemp(directory) == nullptr) {
            throw std::runtime_error("mkdtemp failed");
        }
        generated = std::make_unique<Generated>();
        generated->directory = directory;
        generated->pair = ipapp_bench::WriteConfigPair(directory, units);
    }
    return generated->pair;
}

void ToolAgainstLibyang(benchmark::State& state) {
    const ipapp_bench::GeneratedPair& pair = PairOf(static_cast<size_t>(state.range(0)));
    const std::string tool = Quoted(IPAPP_VALIDATE) + " --format json --timing --running " +
                             Quoted(pair.running_file) + " " + Quoted(pair.candidate_file);
    const std::string libyang = Quoted(LY_PARSE_VALIDATE) + " " + Quoted(IPAPP_YANG_DIR) + " " +
                                Quoted(pair.running_file) + " " + Quoted(pair.candidate_file);
    double own = 0;
    double plugin = 0;
    double reported_own = 0;
    double baseline = 0;
    for (auto _ : state) {
        const Timed run = RunTimed(tool);
        const Timed reference = RunTimed(libyang);
        if (run.status > 1 || reference.status != 0) {
            state.SkipWithError("a run failed");
            return;
        }
        const double plugin_seconds = JsonNumber(run.out, "plugin_ms") / 1000;
        state.SetIterationTime(run.seconds - plugin_seconds);
        own += run.seconds - plugin_seconds;
        plugin += plugin_seconds;
        reported_own += JsonNumber(run.out, "tool_ms") / 1000;
        baseline += reference.seconds;
    }
    const double runs = static_cast<double>(state.iterations());
    state.counters["running_nodes"] = static_cast<double>(pair.running_nodes);
    state.counters["candidate_nodes"] = static_cast<double>(pair.candidate_nodes);
    state.counters["tool_own_ms"] = own / runs * 1000;
    state.counters["tool_reported_ms"] = reported_own / runs * 1000;
    state.counters["plugin_ms"] = plugin / runs * 1000;
    state.counters["libyang_ms"] = baseline / runs * 1000;
    state.counters["ratio"] = own / baseline;
}

// Units of about 78 nodes: 50k, 250k and 500k nodes in each file.
BENCHMARK(ToolAgainstLibyang)
    ->Arg(640)
    ->Arg(3200)
    ->Arg(6400)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);

}  // namespace

BENCHMARK_MAIN();
