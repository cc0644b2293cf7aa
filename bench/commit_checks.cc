#include "commit_checks.h"

#include <confd_lib.h>
#include <velconfd_host.h>

#include <algorithm>
#include <array>

#include "ip_app_valid.h"

namespace ipapp_bench {
namespace {

// The points of the address and route handlers.
constexpr std::array<const char*, 6> kPoints = {
    "ipv4_addr_route_validation", "ipv6_addr_route_validation",
    "ipv4_addr_validation",       "ipv4_addr_prot_cross_validation",
    "ipv6_addr_validation",       "static_route_l3_intf_validation",
};

bool IsAddressOrRoutePoint(const std::string& name) {
    return std::find(kPoints.begin(), kPoints.end(), name) != kPoints.end();
}

std::string LibraryName() {
    char name[256] = {};
    get_validation_point(name, sizeof name - 1);
    return name;
}

}  // namespace

CommitChecks::CommitChecks(const std::string& yang_dir, const std::string& candidate_file)
    : schema_(confdstore::Schema::load(yang_dir)), datastore_(schema_) {
    datastore_.load_candidate(candidate_file);
    transaction_ = std::make_unique<ipapp_validate::HostTransaction>(datastore_);
    std::vector<confdstore::ValidationPoint> points = schema_.validation_points();
    points.erase(std::remove_if(points.begin(), points.end(),
                                [](const confdstore::ValidationPoint& point) {
                                    return !IsAddressOrRoutePoint(point.name);
                                }),
                 points.end());
    // Made up front, so that a timed call is the plug-in's work alone.
    const ipapp_validate::CallPlan plan = ipapp_validate::PlanChangedCalls(points, datastore_);
    for (size_t call = 0; call < plan.size(); ++call) {
        plan_.push_back(plan.Make(call));
    }
}

CommitChecks::~CommitChecks() {
    Finish();
}

std::string CommitChecks::call_name(size_t call) const {
    const std::string keypath = plan_[call].keypath.text();
    return plan_[call].point + "@" + keypath.substr(keypath.find_last_of('/') + 1);
}

void CommitChecks::Init() {
    lib_init(&context_);
    velconfd_set_lib_context(transaction_->host_state(), LibraryName().c_str(), context_);
}

void CommitChecks::Finish() {
    if (context_ != nullptr) {
        lib_finish(&context_);
        velconfd_set_lib_context(transaction_->host_state(), LibraryName().c_str(), nullptr);
        context_ = nullptr;
    }
}

size_t CommitChecks::Commit() {
    Finish();
    Init();
    size_t refused = 0;
    for (size_t call = 0; call < plan_.size(); ++call) {
        refused += Call(call) != 0 ? 1 : 0;
    }
    Finish();
    return refused;
}

void CommitChecks::ReadSnapshot() {
    Finish();
    Init();
    for (size_t call = 0; call < plan_.size(); ++call) {
        Call(call);
    }
}

int CommitChecks::Call(size_t call) {
    confd_trans_ctx& tctx = transaction_->context();
    confd_trans_clear_err(&tctx);
    tctx.vcb_opaque = plan_[call].point.data();
    confd_hkeypath_t keypath = plan_[call].keypath.get();
    confd_value_t new_value = plan_[call].new_value;
    return validate(&tctx, &keypath, &new_value);
}

}  // namespace ipapp_bench
