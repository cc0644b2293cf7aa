// Fault reports carry the reporting site and a text cut to the 300-byte
// buffer.
#include "ip_app_valid/confd_api.h"

#include <gtest/gtest.h>

#include <string>

#include "fault_report.h"
#include "host_log.h"

namespace {

using ip_application::config_valid::ReportFault;
using ip_application::config_valid::SourceSite;

TEST(ReportFault, SendsTheFormattedTextWithTheSiteAndCodeZero) {
    plugin_test::HostLog log;
    ReportFault(SourceSite{"ReadConfig", "src/lib/config", 42},
                "Unspecified IPv4 address for key '%s'", "0.0.0.0/0");
    const auto faults = log.Faults();
    ASSERT_EQ(faults.size(), 1u);
    EXPECT_EQ(faults[0].file, "src/lib/config");
    EXPECT_EQ(faults[0].line, 42);
    EXPECT_EQ(faults[0].function, "ReadConfig");
    EXPECT_EQ(faults[0].text, "Unspecified IPv4 address for key '0.0.0.0/0'");
    EXPECT_EQ(faults[0].code, 0);
}

TEST(ReportFault, CutsTheTextAt299Characters) {
    struct Case {
        size_t key_length;
        size_t text_length;
    };
    const std::string prefix = "Unspecified IPv6 address for key '";
    const Case cases[] = {
        {10, prefix.size() + 10 + 1},
        {298 - prefix.size(), 299},
        {299 - prefix.size(), 299},
        {1000, 299},
    };
    for (const Case& c : cases) {
        plugin_test::HostLog log;
        const std::string key(c.key_length, 'k');
        ReportFault(IPAPP_SOURCE_SITE, "Unspecified IPv6 address for key '%s'", key.c_str());
        const auto faults = log.Faults();
        ASSERT_EQ(faults.size(), 1u);
        EXPECT_EQ(faults[0].text.size(), c.text_length) << "key of " << c.key_length;
        EXPECT_EQ(faults[0].text.compare(0, prefix.size(), prefix), 0);
    }
}

}  // namespace
