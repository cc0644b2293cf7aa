// Fault reports carry the reporting site, code 0 and a text cut to the
// 300-byte buffer.
#include "ip_app_valid/confd_api.h"

#include <gtest/gtest.h>

#include <string>

#include "fault_report.h"
#include "host_log.h"

namespace {

TEST(ReportFault, SendsTheFormattedTextCutAt299CharactersWithTheSite) {
    const std::string prefix = "Unspecified IPv6 address for key '";
    for (const size_t key_length :
         {size_t{10}, 298 - prefix.size(), 299 - prefix.size(), size_t{1000}}) {
        plugin_test::HostLog log;
        const std::string key(key_length, 'k');
        ip_application::config_valid::ReportFault({"ReadConfig", "src/lib/config", 42},
                                                  "Unspecified IPv6 address for key '%s'",
                                                  key.c_str());
        const std::string text = (prefix + key + "'").substr(0, 299);
        EXPECT_EQ(log.Lines(),
                  std::vector<std::string>{"fault: src/lib/config:<line>: ReadConfig: " + text +
                                           " (code 0)"})
            << "key of " << key_length;
    }
}

}  // namespace
