// CDB read sessions against the project's datastore served in-process.
#include <gtest/gtest.h>

#include <fcntl.h>

#include <filesystem>
#include <string>

#include "config_xml.h"
#include "ipapp_test_support/confd_fixture.h"
#include "velconfd_cdb_session_base.h"
#include "velconfd_interface.h"

namespace {

constexpr const char* kVlanPath = "/config/interface/l3{5}/lower-layer-if/vlan";

std::string config_with_vlan(int vlan) {
    return ipapp_generator::Interfaces(ipapp_generator::L3("5", ipapp_generator::Vlan(vlan)));
}

bool is_open(int fd) {
    return fcntl(fd, F_GETFD) != -1;
}

size_t open_descriptors() {
    const std::filesystem::directory_iterator fds("/proc/self/fd");
    return static_cast<size_t>(std::distance(begin(fds), end(fds)));
}

int32_t read_vlan(const VelConfdCdbSessionBase& session) {
    int32_t vlan = 0;
    return cdb_get_int32(session.Socket(), &vlan, kVlanPath) == CONFD_OK ? vlan : -1;
}

// The candidate differs, so a read of 100 is the running configuration.
TEST(CdbSession, ReadsRunningStartedAtOnceOrOnRequestAndClosesItsSocket) {
    ipapp_test::ConfdFixture confd(config_with_vlan(100), config_with_vlan(101));
    VelConfdInterface instance(*reinterpret_cast<const sockaddr_in*>(confd.address()));
    for (bool start_at_once : {true, false}) {
        SCOPED_TRACE(start_at_once);
        int sock = -1;
        {
            VelConfdCdbSessionBase session(&instance, CDB_RUNNING, start_at_once);
            sock = session.Socket();
            ASSERT_TRUE(is_open(sock));
            EXPECT_EQ(session.Started(), start_at_once);
            EXPECT_EQ(read_vlan(session), start_at_once ? 100 : -1);
            ASSERT_EQ(session.Start(), CONFD_OK);
            EXPECT_EQ(session.Start(), CONFD_OK);
            EXPECT_EQ(read_vlan(session), 100) << confd_lasterr();
        }
        EXPECT_FALSE(is_open(sock));
    }
}

TEST(CdbSession, WithoutAgentReadsFailAndNoDescriptorLeaks) {
    sockaddr_in nobody{};
    nobody.sin_family = AF_INET;
    nobody.sin_port = htons(1);
    VelConfdInterface idle(nobody);
    const size_t descriptors = open_descriptors();
    for (VelConfdInterface* instance : {&idle, static_cast<VelConfdInterface*>(nullptr)}) {
        VelConfdCdbSessionBase session(instance, CDB_RUNNING, true);
        EXPECT_EQ(session.Socket(), -1);
        EXPECT_FALSE(session.Started());
        EXPECT_EQ(session.Start(), CONFD_ERR);
        EXPECT_EQ(read_vlan(session), -1);
    }
    EXPECT_EQ(open_descriptors(), descriptors);
}

}  // namespace
