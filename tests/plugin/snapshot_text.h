// Snapshot records as one line of text each, so tests compare whole
// records: "name|vrf|ipv4,...|ipv6,...|vlan".
#ifndef TESTS_PLUGIN_SNAPSHOT_TEXT_H
#define TESTS_PLUGIN_SNAPSHOT_TEXT_H

#include "ip_app_valid/confd_api.h"

#include <string>
#include <vector>

#include "ip_app_valid/interface.h"
#include "ip_app_valid/ospfv2_config.h"
#include "ip_app_valid/static_route_config.h"

namespace plugin_test {

std::vector<std::string> Records(
    const std::vector<ip_application::config_valid::Interface>& interfaces);
// "output interface|vrf|network|next hop"
std::vector<std::string> Records(const ip_application::config_valid::StaticRouteList& routes);
// "interface|process|vrf|area|ipv4,..."
std::vector<std::string> Records(const ip_application::config_valid::OspfIfList& assignments);

}  // namespace plugin_test

#endif  // TESTS_PLUGIN_SNAPSHOT_TEXT_H
