// The configuration model: read-once flags and the keypath's interface kind.
#include "ip_app_valid/confd_api.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

#include "ip_app_valid/config.h"

namespace {

using ip_application::config_valid::Config;
using ip_application::config_valid::ConfigAddrFamily;
using ip_application::config_valid::GenericConfig;
using ip_application::config_valid::InterfaceType;

// A reader that records the families it was asked to read; a read of family
// 6 throws while fail_ipv6 is set.
class RecordingReader : public GenericConfig {
  public:
    void ReadConfig(ConfigAddrFamily family) override {
        reads.push_back(static_cast<int>(family));
        if (family == ConfigAddrFamily::IPv6 && fail_ipv6) {
            fail_ipv6 = false;
            throw std::runtime_error("read failed");
        }
    }
    std::vector<int> reads;
    bool fail_ipv6 = false;
};

TEST(ReadConfigIfNeeded, ReadsEachFamilyOnceIgnoresOthersAndRetriesAThrowingRead) {
    struct Case {
        std::vector<int> requests;
        bool first_ipv6_read_throws;
        std::vector<int> reads;
        bool ipv4_read;
        bool ipv6_read;
    };
    const Case cases[] = {
        {{4, 4, 6, 6}, false, {4, 6}, true, true}, {{6, 4, 4}, false, {6, 4}, true, true},
        {{0, 5, 7}, false, {}, false, false},      {{6}, true, {6}, false, false},
        {{6, 6, 6}, true, {6, 6}, false, true},
    };
    for (const Case& c : cases) {
        RecordingReader reader;
        reader.fail_ipv6 = c.first_ipv6_read_throws;
        for (int family : c.requests) {
            try {
                reader.ReadConfigIfNeeded(static_cast<ConfigAddrFamily>(family));
            } catch (const std::runtime_error&) {
                EXPECT_EQ(family, 6);
            }
        }
        EXPECT_EQ(reader.reads, c.reads);
        EXPECT_EQ(reader.ipv4_read(), c.ipv4_read);
        EXPECT_EQ(reader.ipv6_read(), c.ipv6_read);
    }
}

TEST(IntfTypeFromConfdPath, MapsTheInnermostTagToTheInterfaceKind) {
    struct Case {
        int len;
        uint32_t tag;
        InterfaceType type;
    };
    // The data model's hashes of l3, loopback, mgmt and vrf, and no tag.
    const Case cases[] = {
        {3, 0x213f1a7a, InterfaceType::L3},      {3, 0x1472cced, InterfaceType::Lo},
        {3, 0x1412343f, InterfaceType::Mgmt},    {3, 0x4c5f3e78, InterfaceType::Unknown},
        {1, 0x213f1a7a, InterfaceType::L3},      {3, 0, InterfaceType::Unknown},
        {0, 0x213f1a7a, InterfaceType::Unknown}, {-1, 0x213f1a7a, InterfaceType::Unknown},
    };
    for (const Case& c : cases) {
        confd_hkeypath_t keypath{};
        keypath.len = c.len;
        CONFD_SET_XMLTAG(&keypath.v[0][0], c.tag, 0);
        EXPECT_EQ(Config::intf_type_from_confd_path(&keypath), c.type)
            << "len " << c.len << " tag " << std::hex << c.tag;
    }
}

}  // namespace
