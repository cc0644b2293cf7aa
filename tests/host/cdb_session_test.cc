// CDB read sessions against a datastore served in-process.
#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <fcntl.h>

#include <filesystem>
#include <fstream>
#include <memory>

#include "confd_datastore.h"
#include "ipapp_test_support/scratch_directory.h"
#include "velconfd_cdb_session_base.h"
#include "velconfd_interface.h"

namespace {

constexpr const char* kModule = R"(module host-session {
  yang-version 1.1;
  namespace "urn:test:host-session";
  prefix hs;
  container config { leaf vlan { type int32; } }
})";

constexpr const char* kVlanPath = "/config/vlan";
constexpr int32_t kRunningVlan = 100;

std::string config_with_vlan(int32_t vlan) {
    return "<config xmlns=\"urn:test:host-session\"><vlan>" + std::to_string(vlan) +
           "</vlan></config>";
}

sockaddr_in agent_address(uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

bool is_open(int fd) {
    return fcntl(fd, F_GETFD) != -1;
}

size_t open_descriptors() {
    const std::filesystem::directory_iterator fds("/proc/self/fd");
    return static_cast<size_t>(std::distance(begin(fds), end(fds)));
}

class CdbSessionTest : public testing::Test {
  protected:
    static constexpr uint16_t kServedPort = 4565;
    static constexpr uint16_t kIdlePort = 4566;

    void SetUp() override {
        std::ofstream(directory_.path() / "host-session.yang") << kModule;
        datastore_ = std::make_unique<confdstore::Datastore>(
            confdstore::Schema::load(directory_.path().string()));
        datastore_->set_running(config_with_vlan(kRunningVlan), confdstore::DataFormat::xml,
                                "running");
        datastore_->set_candidate(config_with_vlan(kRunningVlan + 1), confdstore::DataFormat::xml,
                                  "candidate");
        const sockaddr_in address = agent_address(kServedPort);
        registration_ =
            datastore_->serve(reinterpret_cast<const sockaddr*>(&address), sizeof address);
    }

    VelConfdInterface served_{agent_address(kServedPort)};
    VelConfdInterface idle_{agent_address(kIdlePort)};

  private:
    ipapp_test::ScratchDirectory directory_;
    std::unique_ptr<confdstore::Datastore> datastore_;
    confdstore::Registration registration_;
};

TEST_F(CdbSessionTest, ReadsTheRunningConfiguration) {
    VelConfdCdbSessionBase session(&served_, CDB_RUNNING, true);
    ASSERT_GE(session.Socket(), 0);
    EXPECT_TRUE(session.Started());
    int32_t vlan = 0;
    ASSERT_EQ(cdb_get_int32(session.Socket(), &vlan, kVlanPath), CONFD_OK) << confd_lasterr();
    EXPECT_EQ(vlan, kRunningVlan);
}

TEST_F(CdbSessionTest, StartsOnRequest) {
    VelConfdCdbSessionBase session(&served_, CDB_RUNNING, false);
    ASSERT_GE(session.Socket(), 0);
    EXPECT_FALSE(session.Started());
    int32_t vlan = 0;
    EXPECT_EQ(cdb_get_int32(session.Socket(), &vlan, kVlanPath), CONFD_ERR);
    ASSERT_EQ(session.Start(), CONFD_OK);
    EXPECT_EQ(session.Start(), CONFD_OK);
    ASSERT_EQ(cdb_get_int32(session.Socket(), &vlan, kVlanPath), CONFD_OK) << confd_lasterr();
    EXPECT_EQ(vlan, kRunningVlan);
}

TEST_F(CdbSessionTest, ClosesItsSocket) {
    int sock = -1;
    {
        VelConfdCdbSessionBase session(&served_, CDB_RUNNING, true);
        sock = session.Socket();
        ASSERT_TRUE(is_open(sock));
    }
    EXPECT_FALSE(is_open(sock));
}

TEST_F(CdbSessionTest, WithoutAgentReadsFail) {
    const size_t descriptors = open_descriptors();
    const struct {
        const char* what;
        VelConfdInterface* instance;
    } cases[] = {{"nothing served", &idle_}, {"no instance", nullptr}};
    for (const auto& c : cases) {
        VelConfdCdbSessionBase session(c.instance, CDB_RUNNING, true);
        EXPECT_EQ(session.Socket(), -1) << c.what;
        EXPECT_FALSE(session.Started()) << c.what;
        EXPECT_EQ(session.Start(), CONFD_ERR) << c.what;
        int32_t vlan = 0;
        EXPECT_EQ(cdb_get_int32(session.Socket(), &vlan, kVlanPath), CONFD_ERR) << c.what;
    }
    EXPECT_EQ(open_descriptors(), descriptors);
}

}  // namespace
