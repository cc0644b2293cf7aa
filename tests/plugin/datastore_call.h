// The plug-in called on a transaction of the project's datastore as the host
// calls it: the MAAPI socket and transaction of the candidate, a host state
// through which CDB sessions reach the running configuration, and a library
// context bound to the transaction. Faults injected by a test end with it.
#ifndef TESTS_PLUGIN_DATASTORE_CALL_H
#define TESTS_PLUGIN_DATASTORE_CALL_H

#include "ip_app_valid/confd_api.h"

#include <ipapp_test_support/confd_fixture.h>
#include <velconfd.h>
#include <velconfd_interface.h>

#include <string>

#include "ip_app_valid.h"
#include "ip_app_valid/config.h"

namespace plugin_test {

// The keypath of a call-once point on an interface list,
// /config/interface/<list>, which is all the handlers look at.
confd_hkeypath_t ListKeypath(u_int32_t list_tag);

// A data model of one module, for keys of types the project's model does not
// give them. The module may import the project's extension and type modules.
confdstore::Schema SchemaOf(const std::string& module_name, const std::string& yang);

class DatastoreCall {
  public:
    // Configurations of the project's data model, or of the schema given.
    DatastoreCall(const std::string& running_xml, const std::string& candidate_xml);
    DatastoreCall(const confdstore::Schema& schema, const std::string& running_xml,
                  const std::string& candidate_xml);
    ~DatastoreCall();
    DatastoreCall(const DatastoreCall&) = delete;
    DatastoreCall& operator=(const DatastoreCall&) = delete;

    // Calls the handler; the new value is the keypath's innermost element, a
    // tag as for a container or list.
    int32_t Run(ValidationHandler* handler, confd_hkeypath_t keypath);
    // Calls the handler on /config/interface/l3{name}/lower-layer-if.
    int32_t RunOnLowerLayer(ValidationHandler* handler, const std::string& name);

    // Replaces the candidate and starts a new transaction on it, as a later
    // callback would see it; the snapshot keeps what it has read.
    void Change(const std::string& candidate_xml);

    // The transaction's error text, "" when none was set.
    std::string error_text() const { return confd_.error_text(); }
    ip_application::config_valid::Config& config() { return config_; }

  private:
    ipapp_test::ConfdFixture confd_;
    VelConfdInterface instance_;
    velconfd_t* host_;
    ip_application::config_valid::Config config_;
};

}  // namespace plugin_test

#endif  // TESTS_PLUGIN_DATASTORE_CALL_H
