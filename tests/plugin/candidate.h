// A library context bound to a datastore whose candidate configuration a
// test gives as XML, as validate binds it for a callback.
#ifndef TESTS_PLUGIN_CANDIDATE_H
#define TESTS_PLUGIN_CANDIDATE_H

#include "ip_app_valid/confd_api.h"

#include <ipapp_test_support/confd_fixture.h>

#include <string>

#include "ip_app_valid/config.h"

namespace plugin_test {

class Candidate {
  public:
    explicit Candidate(const std::string& candidate_xml);
    // Faults injected by the test end with it.
    ~Candidate();
    Candidate(const Candidate&) = delete;
    Candidate& operator=(const Candidate&) = delete;

    ip_application::config_valid::Config& config() { return config_; }
    ipapp_test::ConfdFixture& confd() { return confd_; }
    // Replaces the candidate and starts a new transaction on it; the
    // snapshot keeps what it has read.
    void Change(const std::string& candidate_xml);

  private:
    ipapp_test::ConfdFixture confd_;
    ip_application::config_valid::Config config_;
};

}  // namespace plugin_test

#endif  // TESTS_PLUGIN_CANDIDATE_H
