/* Sockets, transactions and CDB sessions of the in-process agent. */
#include <arpa/inet.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstring>

#include "project_data.h"
#include "test_util.h"

namespace {

using confd_test::error;
using confd_test::outcome;

const std::string kRunning =
    ipapp_generator::Interfaces(ipapp_generator::L3("5", ipapp_generator::Vlan(99)));
constexpr const char* kVlan = "/config/interface/l3{5}/lower-layer-if/vlan";

int new_socket() {
    return socket(PF_INET, SOCK_STREAM, 0);
}

TEST(Sockets, ConnectOnlyWhereADatastoreIsServed) {
    ipapp_test::ConfdFixture confd("", "");
    sockaddr_in nobody{};
    nobody.sin_family = AF_INET;
    nobody.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    nobody.sin_port = htons(1);
    const int sock = new_socket();
    EXPECT_EQ(outcome(maapi_connect(sock, reinterpret_cast<sockaddr*>(&nobody), sizeof nobody)),
              error(CONFD_ERR_OS, "connect: connection refused: nothing serves inet:127.0.0.1:1"));
    EXPECT_EQ(maapi_connect(sock, nullptr, 0), CONFD_ERR);
    EXPECT_EQ(outcome(maapi_connect(-1, confd.address(), confd.address_length())),
              error(CONFD_ERR_OS, "connect: socket -1 is not an open file descriptor"));
    EXPECT_EQ(maapi_start_trans(sock, CONFD_CANDIDATE, CONFD_READ), CONFD_ERR);
    EXPECT_EQ(maapi_close(sock), CONFD_ERR);  // never connected: not ours to close
    ASSERT_EQ(maapi_connect(sock, confd.address(), confd.address_length()), CONFD_OK);
    EXPECT_EQ(maapi_close(sock), CONFD_OK);
    EXPECT_EQ(fcntl(sock, F_GETFD), -1);  // maapi_close closed the descriptor
}

TEST(Transactions, HandlesMustBeKnownAndOfTheSocket) {
    ipapp_test::ConfdFixture confd("", confd_test::Candidate());
    const int other = new_socket();
    ASSERT_EQ(maapi_connect(other, confd.address(), confd.address_length()), CONFD_OK);
    EXPECT_EQ(outcome(maapi_exists(other, confd.thandle(), "/config/interface/l3{5}")),
              error(CONFD_ERR_BADSTATE, "transaction " + std::to_string(confd.thandle()) +
                                            " was not started on socket " + std::to_string(other)));
    EXPECT_EQ(outcome(maapi_exists(other, 999999, "/config")),
              error(CONFD_ERR_NOEXISTS, "no transaction 999999"));
    EXPECT_EQ(maapi_start_trans(other, CONFD_STARTUP, CONFD_READ), CONFD_ERR);
    // Closing a socket ends the transactions started on it.
    const int closed = maapi_start_trans(other, CONFD_CANDIDATE, CONFD_READ);
    ASSERT_EQ(maapi_close(other), CONFD_OK);
    EXPECT_EQ(outcome(maapi_exists(confd.maapi_socket(), closed, "/config")),
              error(CONFD_ERR_NOEXISTS, "no transaction " + std::to_string(closed)));
}

// A transaction keeps the tree it started with; there are transactions on
// the candidate only (running is read through CDB).
TEST(Transactions, CandidateOnlyAndSnapshotted) {
    ipapp_test::ConfdFixture confd(kRunning, confd_test::Candidate());
    const int s = confd.maapi_socket();
    EXPECT_EQ(confd_test::outcome(maapi_start_trans(s, CONFD_RUNNING, CONFD_READ)),
              error(CONFD_ERR_NOEXISTS, "start_trans: database 2 is not available"));
    confd.datastore().set_candidate("", confdstore::DataFormat::xml, "replacement");
    EXPECT_EQ(maapi_exists(s, confd.thandle(), "/config/interface/l3{5}"), 1);
    const int fresh = maapi_start_trans(s, CONFD_CANDIDATE, CONFD_READ);
    EXPECT_EQ(maapi_exists(s, fresh, "/config/interface/l3{5}"), 0);
    EXPECT_EQ(maapi_finish_trans(s, fresh), CONFD_OK);
    EXPECT_EQ(maapi_finish_trans(s, fresh), CONFD_ERR);
}

TEST(Cdb, ReadsRunningWhileMaapiReadsTheCandidate) {
    ipapp_test::ConfdFixture confd(kRunning, confd_test::Candidate());
    const int cdb = new_socket();
    ASSERT_EQ(cdb_connect(cdb, CDB_READ_SOCKET, confd.address(), confd.address_length()), CONFD_OK);
    int32_t vlan = 0;
    EXPECT_EQ(
        outcome(cdb_get_int32(cdb, &vlan, "/config/interface/l3{%s}/lower-layer-if/vlan", "5")),
        error(CONFD_ERR_NOSESSION, "no CDB session is started on this socket"));
    ASSERT_EQ(cdb_start_session(cdb, CDB_RUNNING), CONFD_OK);
    EXPECT_EQ(outcome(cdb_start_session(cdb, CDB_RUNNING)),
              error(CONFD_ERR_BADSTATE, "cdb_start_session: a session is started already"));
    EXPECT_EQ(cdb_get_int32(cdb, &vlan, "/config/interface/l3{%s}/lower-layer-if/vlan", "5"),
              CONFD_OK);
    EXPECT_EQ(vlan, 99);
    int32_t candidate_vlan = 0;
    EXPECT_EQ(maapi_get_int32_elem(confd.maapi_socket(), confd.thandle(), &candidate_vlan, kVlan),
              CONFD_OK);
    EXPECT_EQ(candidate_vlan, 100);
    EXPECT_EQ(cdb_exists(cdb, "/config/interface/l3{10}"), 0);
    EXPECT_EQ(
        outcome(cdb_get_int32(cdb, &vlan, "/config/interface/l3{10}/lower-layer-if/vlan")),
        error(CONFD_ERR_NOEXISTS, "/config/interface/l3{10}/lower-layer-if/vlan does not exist"));
    EXPECT_EQ(cdb_end_session(cdb), CONFD_OK);
    EXPECT_EQ(outcome(cdb_end_session(cdb)),
              error(CONFD_ERR_NOSESSION, "cdb_end_session: no session is started"));
    EXPECT_EQ(outcome(cdb_start_session(cdb, CDB_OPERATIONAL)),
              error(CONFD_ERR_NOEXISTS, "cdb_start_session: database 3 is not available"));
    EXPECT_EQ(maapi_exists(cdb, confd.thandle(), "/config"), CONFD_ERR);  // not a MAAPI socket
    EXPECT_EQ(cdb_close(cdb), CONFD_OK);
}

}  // namespace
