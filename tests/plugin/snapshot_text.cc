#include "snapshot_text.h"

#include <sstream>

namespace plugin_test {

namespace {

template <typename List>
std::string Joined(const List& addrs) {
    std::ostringstream text;
    const char* separator = "";
    for (const auto& addr : addrs) {
        text << separator << addr;
        separator = ",";
    }
    return text.str();
}

}  // namespace

std::vector<std::string> Records(
    const std::vector<ip_application::config_valid::Interface>& interfaces) {
    std::vector<std::string> records;
    for (const auto& intf : interfaces) {
        records.push_back(intf.name + "|" + intf.vrf_name + "|" + Joined(intf.ipv4_addrs) + "|" +
                          Joined(intf.ipv6_addrs) + "|" + std::to_string(intf.lim_id.index));
    }
    return records;
}

std::vector<std::string> Records(const ip_application::config_valid::StaticRouteList& routes) {
    std::vector<std::string> records;
    for (const auto& route : routes) {
        std::ostringstream text;
        text << route->output_intf() << "|" << route->vrf_name() << "|" << route->network() << "|"
             << route->next_hop();
        records.push_back(text.str());
    }
    return records;
}

std::vector<std::string> Records(const ip_application::config_valid::OspfIfList& assignments) {
    std::vector<std::string> records;
    for (const auto& assignment : assignments) {
        records.push_back(assignment->intf_name + "|" + std::to_string(assignment->process_id) +
                          "|" + assignment->vrf_name + "|" + assignment->area.to_string() + "|" +
                          Joined(assignment->addrs));
    }
    return records;
}

}  // namespace plugin_test
