// The configuration model: read-once flags, the interface readers' order,
// the keypath's interface kind, and the merge rules of the snapshot.
#include "ip_app_valid/confd_api.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

#include "ip_app_valid/config.h"
#include "snapshot.h"
#include "snapshot_text.h"

namespace {

using ip_application::config_valid::Config;
using ip_application::config_valid::ConfigAddrFamily;
using ip_application::config_valid::GenericConfig;
using ip_application::config_valid::InterfaceType;
using ip_application::config_valid::L3Config;
using ip_application::config_valid::LoConfig;
using ip_application::config_valid::Ospfv2Config;

// A reader that records what it was asked to read and can fail once.
class RecordingReader : public GenericConfig {
  public:
    void ReadConfig(ConfigAddrFamily family) override {
        reads.push_back(static_cast<int>(family));
        if (fail_next) {
            fail_next = false;
            throw std::runtime_error("read failed");
        }
    }
    std::vector<int> reads;
    bool fail_next = false;
};

TEST(ReadConfigIfNeeded, ReadsEachFamilyOnceAndIgnoresOthers) {
    struct Case {
        std::vector<int> requests;
        std::vector<int> reads;
        bool ipv4_read;
        bool ipv6_read;
    };
    const Case cases[] = {
        {{4, 4}, {4}, true, false},          {{4, 6, 4, 6}, {4, 6}, true, true},
        {{6, 4}, {6, 4}, true, true},        {{5}, {}, false, false},
        {{0, 5, 6, 7, 6}, {6}, false, true},
    };
    for (const Case& c : cases) {
        RecordingReader reader;
        for (int family : c.requests) {
            reader.ReadConfigIfNeeded(static_cast<ConfigAddrFamily>(family));
        }
        EXPECT_EQ(reader.reads, c.reads);
        EXPECT_EQ(reader.ipv4_read(), c.ipv4_read);
        EXPECT_EQ(reader.ipv6_read(), c.ipv6_read);
    }
}

TEST(ReadConfigIfNeeded, ThrowingReadLeavesTheFamilyUnread) {
    RecordingReader reader;
    reader.fail_next = true;
    EXPECT_THROW(reader.ReadConfigIfNeeded(ConfigAddrFamily::IPv4), std::runtime_error);
    EXPECT_FALSE(reader.ipv4_read());
    reader.ReadConfigIfNeeded(ConfigAddrFamily::IPv4);
    reader.ReadConfigIfNeeded(ConfigAddrFamily::IPv4);
    EXPECT_EQ(reader.reads, (std::vector<int>{4, 4}));
    EXPECT_TRUE(reader.ipv4_read());
}

TEST(IntfByType, SearchesTheReadersInManagementLayer3LoopbackOrder) {
    Config config;
    EXPECT_EQ(config.intf_by_type(InterfaceType::Mgmt), &config.mgmt_config);
    EXPECT_EQ(config.intf_by_type(InterfaceType::L3), &config.l3_config);
    EXPECT_EQ(config.intf_by_type(InterfaceType::Lo), &config.lo_config);
    EXPECT_EQ(config.intf_by_type(InterfaceType::Unknown), nullptr);
    // The search goes by the list and by kind: another reader of a kind
    // placed before the member is the one found.
    LoConfig other_loopbacks;
    config.interface_configs.insert(config.interface_configs.begin(), &other_loopbacks);
    EXPECT_EQ(config.intf_by_type(InterfaceType::Lo), &other_loopbacks);
    config.interface_configs.clear();
    EXPECT_EQ(config.intf_by_type(InterfaceType::Mgmt), nullptr);
}

TEST(IntfTypeFromConfdPath, MapsTheInnermostTagToTheInterfaceKind) {
    struct Case {
        int len;
        uint32_t tag;
        InterfaceType type;
    };
    // The data model's hashes of l3, loopback and mgmt, and two strangers.
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

TEST(IntfTypeFromConfdPath, EmptyKeypathIsNotLookedInto) {
    confd_hkeypath_t keypath{};
    CONFD_SET_UINT32(&keypath.v[0][0], 5);
    EXPECT_EQ(Config::intf_type_from_confd_path(&keypath), InterfaceType::Unknown);
}

TEST(IntfTypeFromConfdPathDeathTest, InnermostElementMustBeATag) {
    confd_hkeypath_t keypath{};
    keypath.len = 3;
    CONFD_SET_CBUF(&keypath.v[0][0], "l3", 2);
    EXPECT_DEATH(Config::intf_type_from_confd_path(&keypath),
                 "src/lib/config:[0-9]+: .*intf_type_from_confd_path.*: Assertion "
                 "`\\(&keypath->v\\[0\\]\\[0\\]\\)->type == C_XMLTAG' failed\\.");
}

TEST(InterfaceMerge, FirstReadWinsPerList) {
    struct Case {
        std::vector<std::string> merged_in_order;
        std::vector<std::string> records;
    };
    const Case cases[] = {
        // A later read fills the other family's empty list only.
        {{"l3 1|red|10.0.0.1/24||7", "l3 1|blue||2001:db8::1/64|9"},
         {"l3 1|red|10.0.0.1/24|2001:db8::1/64|7"}},
        {{"l3 1|red||2001:db8::1/64", "l3 1|red|10.0.0.1/24"},
         {"l3 1|red|10.0.0.1/24|2001:db8::1/64|0"}},
        // Filling the IPv4 list ends the merge.
        {{"l3 1|red", "l3 1|red|10.0.0.1/24|2001:db8::1/64"}, {"l3 1|red|10.0.0.1/24||0"}},
        // A non-empty list is never replaced or extended.
        {{"l3 1|red|10.0.0.1/24|2001:db8::1/64", "l3 1|red|10.0.0.2/24|2001:db8::2/64"},
         {"l3 1|red|10.0.0.1/24|2001:db8::1/64|0"}},
        // New names are appended in the order first met, compared whole.
        {{"l3 2", "l3 10", "l3 1", "l3 10|red|10.0.0.1/24", "L3 1", "l3 1 "},
         {"l3 2|global|||0", "l3 10|global|10.0.0.1/24||0", "l3 1|global|||0", "L3 1|global|||0",
          "l3 1 |global|||0"}},
    };
    for (const Case& c : cases) {
        L3Config reader;
        for (const std::string& record : c.merged_in_order) {
            reader.MergeConfigAndInsert(plugin_test::ParseInterface(record));
        }
        EXPECT_EQ(plugin_test::Records(reader.interfaces()), c.records);
    }
}

TEST(OspfMerge, OneRecordPerInterfaceProcessAndVrf) {
    Ospfv2Config ospf;
    for (const char* record : {
             "l3 5|1|red|0.0.0.1|10.0.0.1/24",
             "l3 5|1|red|0.0.0.2|10.0.1.1/24",  // another area: same record
             "l3 5|2|red|0.0.0.1|10.0.2.1/24",  // another process
             "l3 5|1|blue|0.0.0.1|10.0.3.1/24", "l3 6|1|red|0.0.0.1|10.0.4.1/24",
             "l3 6|1|red|0.0.0.1",  // nothing to add
         }) {
        auto assignment = plugin_test::ParseOspfIf(record);
        ospf.MergeConfigAndInsert(assignment);
    }
    EXPECT_EQ(plugin_test::Records(ospf.interfaces()),
              (std::vector<std::string>{
                  "l3 5|1|red|0.0.0.1|10.0.0.1/24,10.0.1.1/24", "l3 5|2|red|0.0.0.1|10.0.2.1/24",
                  "l3 5|1|blue|0.0.0.1|10.0.3.1/24", "l3 6|1|red|0.0.0.1|10.0.4.1/24"}));
}

}  // namespace
