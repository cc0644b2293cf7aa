// The snapshot's records as one line of text each, so that what a reader or
// a merge holds compares as a list of strings and prints readably when it
// differs.
#ifndef TESTS_PLUGIN_RECORD_TEXT_H
#define TESTS_PLUGIN_RECORD_TEXT_H

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "ip_app_valid/config.h"

namespace plugin_test {

// The items joined by ",".
template <typename List>
std::string Joined(const List& items) {
    std::ostringstream text;
    for (const auto& item : items) {
        text << (&item == &*items.begin() ? "" : ",") << item;
    }
    return text.str();
}

// "name|vrf|ipv4,...|ipv6,...|lower-layer type:index"
inline std::string Text(const ip_application::config_valid::Interface& intf) {
    return intf.name + "|" + intf.vrf_name + "|" + Joined(intf.ipv4_addrs) + "|" +
           Joined(intf.ipv6_addrs) + "|" + std::to_string(intf.lim_id.type) + ":" +
           std::to_string(intf.lim_id.index);
}

// "interface|process|vrf|area|ipv4,..."
inline std::string Text(const ip_application::config_valid::OspfIf& record) {
    return record.intf_name + "|" + std::to_string(record.process_id) + "|" + record.vrf_name +
           "|" + record.area.to_string() + "|" + Joined(record.addrs);
}

// "output interface|vrf|network|next hop"
inline std::string Text(const ip_application::config_valid::StaticRoute& route) {
    std::ostringstream text;
    text << route.output_intf() << "|" << route.vrf_name() << "|" << route.network() << "|"
         << route.next_hop();
    return text.str();
}

template <typename Record>
std::string Text(const std::shared_ptr<Record>& record) {
    return Text(*record);
}

template <typename Records>
std::vector<std::string> Texts(const Records& records) {
    std::vector<std::string> texts;
    for (const auto& record : records) {
        texts.push_back(Text(record));
    }
    return texts;
}

}  // namespace plugin_test

#endif  // TESTS_PLUGIN_RECORD_TEXT_H
