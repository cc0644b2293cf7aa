#include "fault_injection.h"

#include <atomic>
#include <mutex>
#include <vector>

#include "confd_fault_injection.h"
#include "confd_lib.h"
#include "error_state.h"

namespace confd::detail {
namespace {

struct Fault {
    std::string call;
    std::string path;  // normalised; empty for every path
    int error;
};

struct Faults {
    std::atomic<bool> active{false};
    std::mutex mutex;
    std::vector<Fault> faults;
    int hits = 0;
};

Faults& faults() {
    static Faults instance;
    return instance;
}

std::string normalize(const std::string& path) {
    std::vector<PathStep> steps;
    std::string error;
    return path.empty() || !parse_path_text(path, steps, error) ? path : normalized_path(steps);
}

}  // namespace

bool faults_registered() {
    return faults().active.load(std::memory_order_acquire);
}

int injected_fault(const char* call, const std::vector<PathStep>& steps) {
    if (!faults_registered()) {
        return CONFD_OK;
    }
    return injected_fault_at(call, normalized_path(steps));
}

int injected_fault_at(const char* call, const std::string& path) {
    if (!faults_registered()) {
        return CONFD_OK;
    }
    Faults& all = faults();
    std::lock_guard<std::mutex> lock(all.mutex);
    for (const Fault& fault : all.faults) {
        if (fault.call == call && (fault.path.empty() || fault.path == path)) {
            ++all.hits;
            return fail(fault.error, std::string("injected fault: ") + call + " " + path);
        }
    }
    return CONFD_OK;
}

}  // namespace confd::detail

namespace confdstore::fault_injection {

void fail(const std::string& call, const std::string& path, int confd_error) {
    auto& all = confd::detail::faults();
    std::lock_guard<std::mutex> lock(all.mutex);
    all.faults.push_back({call, confd::detail::normalize(path), confd_error});
    all.active.store(true, std::memory_order_release);
}

void reset() {
    auto& all = confd::detail::faults();
    std::lock_guard<std::mutex> lock(all.mutex);
    all.faults.clear();
    all.hits = 0;
    all.active.store(false, std::memory_order_release);
}

int hits() {
    auto& all = confd::detail::faults();
    std::lock_guard<std::mutex> lock(all.mutex);
    return all.hits;
}

}  // namespace confdstore::fault_injection
