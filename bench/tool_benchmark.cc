// The whole ipapp-validate run on a generated running/candidate pair against
// libyang's own parse and validation of the same two files, each as a
// process of its own. The time a run spends inside the plug-in (which the
// tool reports with --timing) is taken out: the manual time is the tool's own
// work. Counters: the data nodes of each file, the tool's own time, the
// plug-in's time, libyang's time and their ratio. Also the tool on one
// device's configuration at growing sizes against libyang on the same file,
// the plug-in's time as parts of the device grow, and the memory a planned
// call costs.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

#include "generated_files.h"

namespace {

using Clock = std::chrono::steady_clock;

struct Timed {
    double seconds = 0;
    double cpu_seconds = 0;  // user and system time of the command's processes
    int status = -1;
    std::string out;
};

std::string Quoted(const std::string& text) {
    return "'" + text + "'";
}

// User and system time of the waited-for children of this process so far.
double ChildrenCpuSeconds() {
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

Timed RunTimed(const std::string& command) {
    Timed timed;
    const double cpu_start = ChildrenCpuSeconds();
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
    timed.cpu_seconds = ChildrenCpuSeconds() - cpu_start;
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

void ToolAgainstLibyang(benchmark::State& state) {
    const ipapp_generator::GeneratedPair& pair =
        ipapp_bench::PairOf(static_cast<size_t>(state.range(0)));
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

std::string ToolOnFile(const std::string& file) {
    return Quoted(IPAPP_VALIDATE) + " --format json --timing --keep-going --no-debug " +
           Quoted(file);
}

// The tool end to end on a device's whole configuration as its first commit
// (no running configuration, so every point fires) at 1, 4 and 16 times the
// device at its limits, and libyang's parse and validation of the same file
// right after it. --keep-going runs every point past the refusals of the
// larger sizes (too many l3 interfaces, too many routes). The manual time is
// the run's wall time; one run per repetition, so the median of the
// repetitions is the median run. Counters: the file's nodes, the calls
// fired, the plug-in's time, libyang's time and the ratio of the run to it,
// in wall time and in CPU time (user and system, steadier on a shared
// machine).
void ToolOnDevice(benchmark::State& state) {
    const ipapp_bench::GeneratedDevice& device =
        ipapp_bench::DeviceOfScale(static_cast<size_t>(state.range(0)));
    const std::string tool = ToolOnFile(device.file);
    const std::string libyang =
        Quoted(LY_PARSE_VALIDATE) + " " + Quoted(IPAPP_YANG_DIR) + " " + Quoted(device.file);
    double whole = 0;
    double whole_cpu = 0;
    double plugin = 0;
    double baseline = 0;
    double baseline_cpu = 0;
    double calls = 0;
    for (auto _ : state) {
        const Timed run = RunTimed(tool);
        const Timed reference = RunTimed(libyang);
        if (run.status > 1 || reference.status != 0) {
            state.SkipWithError("a run failed");
            return;
        }
        state.SetIterationTime(run.seconds);
        whole += run.seconds;
        whole_cpu += run.cpu_seconds;
        plugin += JsonNumber(run.out, "plugin_ms") / 1000;
        baseline += reference.seconds;
        baseline_cpu += reference.cpu_seconds;
        calls = JsonNumber(run.out, "fired");
    }
    const double runs = static_cast<double>(state.iterations());
    state.counters["nodes"] = static_cast<double>(device.nodes);
    state.counters["calls"] = calls;
    state.counters["plugin_ms"] = plugin / runs * 1000;
    state.counters["libyang_ms"] = baseline / runs * 1000;
    state.counters["ratio"] = whole / baseline;
    state.counters["cpu_ms"] = whole_cpu / runs * 1000;
    state.counters["libyang_cpu_ms"] = baseline_cpu / runs * 1000;
    state.counters["cpu_ratio"] = whole_cpu / baseline_cpu;
}

BENCHMARK(ToolOnDevice)
    ->Arg(1)
    ->Arg(4)
    ->Arg(16)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->Repetitions(9)
    ->ReportAggregatesOnly(true);

// One part of the device at its limits raised in doublings, each size run in
// turn within one repetition, so the ratios between sizes come from runs
// side by side. Past a limit the device is refused and still checked to the
// end (--keep-going). Counters: the time inside the plug-in per size (wall,
// as the tool reports it) and the growth per doubling. The manual time is
// that time summed over the sizes. (The plug-in's CPU time taken as the
// run's less that of a run with a plug-in that accepts at once was tried:
// under load the difference of two CPU times scattered below zero.)
void GrowthInPlugin(benchmark::State& state, ipapp_bench::GrowingPart part,
                    std::vector<size_t> sizes) {
    std::vector<double> wall(sizes.size());
    for (auto _ : state) {
        double summed = 0;
        for (size_t i = 0; i < sizes.size(); ++i) {
            const Timed run = RunTimed(ToolOnFile(ipapp_bench::DeviceGrowing(part, sizes[i]).file));
            if (run.status > 1) {
                state.SkipWithError("the tool failed");
                return;
            }
            wall[i] = JsonNumber(run.out, "plugin_ms");
            summed += wall[i] / 1000;
        }
        state.SetIterationTime(summed);
    }
    for (size_t i = 0; i < sizes.size(); ++i) {
        state.counters[std::to_string(sizes[i]) + "_ms"] = wall[i];
        if (i > 0) {
            state.counters["x" + std::to_string(i)] = wall[i] / wall[i - 1];
        }
    }
}

BENCHMARK_CAPTURE(GrowthInPlugin, loopbacks, ipapp_bench::GrowingPart::loopbacks,
                  std::vector<size_t>{10000, 20000, 40000})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);
BENCHMARK_CAPTURE(GrowthInPlugin, l3, ipapp_bench::GrowingPart::l3,
                  std::vector<size_t>{256, 512, 1024, 2048, 4096, 8192})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);
BENCHMARK_CAPTURE(GrowthInPlugin, route_units, ipapp_bench::GrowingPart::static_routes,
                  std::vector<size_t>{1000, 2000, 4000, 8000, 16000, 32000})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);

#ifdef TOOL_TEST_PLUGIN
struct Peak {
    long bytes = 0;  // the larger resident size of the tool and its child
    std::string out;
};

// Runs the command without a shell; wait4 reports the peak of the process
// and of the children it waited for.
Peak PeakOf(const std::vector<std::string>& command) {
    int out[2];
    if (pipe(out) != 0) {
        throw std::runtime_error("cannot create a pipe");
    }
    const pid_t pid = fork();
    if (pid == 0) {
        dup2(out[1], STDOUT_FILENO);
        const int null = open("/dev/null", O_WRONLY);
        dup2(null, STDERR_FILENO);
        std::vector<char*> argv;
        for (const std::string& argument : command) {
            argv.push_back(const_cast<char*>(argument.c_str()));
        }
        argv.push_back(nullptr);
        execv(argv[0], argv.data());
        _exit(127);
    }
    close(out[1]);
    Peak peak;
    char buffer[4096];
    for (ssize_t n; (n = read(out[0], buffer, sizeof buffer)) > 0;) {
        peak.out.append(buffer, static_cast<size_t>(n));
    }
    close(out[0]);
    int status = 0;
    rusage usage{};
    if (pid < 0 || wait4(pid, &status, 0, &usage) != pid || !WIFEXITED(status) ||
        WEXITSTATUS(status) != 0) {
        throw std::runtime_error("the run failed: " + command.back());
    }
    peak.bytes = usage.ru_maxrss * 1024L;
    return peak;
}

// The memory a planned call costs: the tool on a first commit of N l3
// interfaces and nothing else, with --keep-going and the test plug-in (which
// accepts every call at once, so the run holds the tool's data and little
// of the plug-in's), against one explicit call on the same file. Counters:
// the calls, each run's peak resident size (the larger of the tool and its
// child) and the difference per planned call. The time is not the figure.
void PlannedCallMemory(benchmark::State& state) {
    const ipapp_bench::GeneratedDevice& device =
        ipapp_bench::DeviceOfL3(static_cast<size_t>(state.range(0)));
    const std::vector<std::string> every_call = {IPAPP_VALIDATE, "--plugin",   TOOL_TEST_PLUGIN,
                                                 "--keep-going", "--no-debug", "--format",
                                                 "json",         device.file};
    const std::vector<std::string> one_call = {
        IPAPP_VALIDATE, "--plugin", TOOL_TEST_PLUGIN, "--call", "p=/config/interface/l3{1}",
        device.file};
    Peak every;
    Peak one;
    for (auto _ : state) {
        every = PeakOf(every_call);
        one = PeakOf(one_call);
    }
    const double calls = JsonNumber(every.out, "fired");
    state.counters["nodes"] = static_cast<double>(device.nodes);
    state.counters["calls"] = calls;
    state.counters["every_call_MB"] = static_cast<double>(every.bytes) / 1e6;
    state.counters["one_call_MB"] = static_cast<double>(one.bytes) / 1e6;
    state.counters["bytes_per_call"] = static_cast<double>(every.bytes - one.bytes) / calls;
}

BENCHMARK(PlannedCallMemory)->Arg(10000)->Arg(100000)->Unit(benchmark::kSecond)->Iterations(1);
#endif

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
