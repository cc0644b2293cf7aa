#include "candidate.h"

#include <confd_fault_injection.h>

namespace plugin_test {

Candidate::Candidate(const std::string& candidate_xml) : confd_("", candidate_xml) {
    confdstore::fault_injection::reset();
    config_.Bind(confd_.maapi_socket(), confd_.tctx());
}

Candidate::~Candidate() {
    confdstore::fault_injection::reset();
}

void Candidate::Change(const std::string& candidate_xml) {
    // A transaction reads the candidate it started on: the change is seen
    // through a new one, as by a later callback.
    confd_.datastore().set_candidate(candidate_xml, confdstore::DataFormat::xml, "candidate");
    confd_.tctx()->thandle = maapi_start_trans(confd_.maapi_socket(), CONFD_CANDIDATE, CONFD_READ);
}

}  // namespace plugin_test
