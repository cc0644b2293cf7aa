// The plug-in's address, route and OSPFv2 points of one commit, in-process:
// a configuration file loaded as the candidate (the running configuration
// empty, so every point fires), served with a validation transaction as the
// daemon sets it up, and the calls of the six handlers' points that such a
// commit makes, in the model's order (both route points, then those of the
// l3, loopback and mgmt lists).
#ifndef IPAPP_BENCH_COMMIT_CHECKS_H
#define IPAPP_BENCH_COMMIT_CHECKS_H

#include <confd_datastore.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "call_plan.h"
#include "host_transaction.h"

namespace ipapp_bench {

class CommitChecks {
  public:
    // Throws confdstore::Error for a file the model refuses.
    CommitChecks(const std::string& yang_dir, const std::string& candidate_file);
    ~CommitChecks();
    CommitChecks(const CommitChecks&) = delete;
    CommitChecks& operator=(const CommitChecks&) = delete;

    // A library context of its own: lib_init, every call, lib_finish. Returns
    // the number of refused calls.
    size_t Commit();

    // The calls, each named "<point>@<list or table>".
    size_t calls() const { return plan_.size(); }
    std::string call_name(size_t call) const;

    // A library context kept across calls, its snapshot read by one commit's
    // calls; Call then runs one point's checks on that snapshot. Returns the
    // call's result.
    void ReadSnapshot();
    int Call(size_t call);

    // The MAAPI socket and read transaction the calls are served with.
    int maapi_socket() const { return transaction_->maapi_socket(); }
    int thandle() { return transaction_->context().thandle; }

  private:
    void Init();
    void Finish();

    confdstore::Schema schema_;
    confdstore::Datastore datastore_;
    std::unique_ptr<ipapp_validate::HostTransaction> transaction_;
    std::vector<ipapp_validate::PlannedCall> plan_;
    void* context_ = nullptr;
};

}  // namespace ipapp_bench

#endif
