/*
 * A ConfD stand-in for tests: the project's data model (yang/) with a running
 * and a candidate configuration given as XML text, served in-process at an
 * address of its own, with a connected MAAPI socket, a candidate transaction
 * and a validation transaction context for it.
 *
 *   ipapp_test::ConfdFixture confd(running_xml, candidate_xml);
 *   confd_trans_ctx* tctx = confd.tctx();      // tctx->thandle is set
 *   tctx->t_opaque = host_state;               // and vcb_opaque: the point name
 *   maapi_exists(confd.maapi_socket(), tctx->thandle, "/config/interface/l3{5}");
 *
 * XML holds the top-level elements of the configuration with their
 * namespaces (see examples/running.xml); an empty text is an empty
 * configuration. Invalid data throws confdstore::Error with libyang's message.
 * For CDB, connect a socket to address() with cdb_connect. The fixture closes
 * its socket, ends its transaction and stops serving when destroyed; the
 * transaction's error text (confd_trans_seterr) is released with it.
 */
#ifndef IPAPP_TEST_SUPPORT_CONFD_FIXTURE_H
#define IPAPP_TEST_SUPPORT_CONFD_FIXTURE_H

#include <netinet/in.h>
#include <sys/socket.h>

#include <string>

#include "confd.h"
#include "confd_datastore.h"

namespace ipapp_test {

// The directory of the project's YANG modules.
std::string yang_dir();

// The project's schema, loaded once per process.
const confdstore::Schema& project_schema();

class ConfdFixture {
  public:
    ConfdFixture(const std::string& running_xml, const std::string& candidate_xml);
    // The same with another schema.
    ConfdFixture(const confdstore::Schema& schema, const std::string& running_xml,
                 const std::string& candidate_xml);
    ~ConfdFixture();
    ConfdFixture(const ConfdFixture&) = delete;
    ConfdFixture& operator=(const ConfdFixture&) = delete;

    int maapi_socket() const { return maapi_socket_; }
    int thandle() const { return tctx_.thandle; }
    confd_trans_ctx* tctx() { return &tctx_; }

    // Where the datastore is served, for further maapi_connect / cdb_connect.
    const struct sockaddr* address() const;
    socklen_t address_length() const { return sizeof address_; }

    // The datastore, to change a configuration or to ask for keypaths.
    confdstore::Datastore& datastore() { return datastore_; }

    // The transaction's error text, "" when none was set.
    std::string error_text() const;

  private:
    confdstore::Datastore datastore_;
    sockaddr_in address_{};
    confdstore::Registration registration_;
    int maapi_socket_ = -1;
    confd_trans_ctx tctx_{};
};

}  // namespace ipapp_test

#endif
