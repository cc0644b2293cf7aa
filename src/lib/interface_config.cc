#include "ip_app_valid/interface_config.h"

namespace ip_application {
namespace config_valid {

void InterfaceConfig::MergeConfigAndInsert(const Interface& intf) {
    const auto [position, is_new] = positions_.emplace(intf.name, interfaces_.size());
    if (is_new) {
        interfaces_.push_back(intf);
        return;
    }
    // First read wins: only an empty list is filled, and filling the IPv4
    // list ends the merge.
    Interface& stored = interfaces_[position->second];
    if (stored.ipv4_addrs.empty() && !intf.ipv4_addrs.empty()) {
        stored.ipv4_addrs = intf.ipv4_addrs;
    } else if (stored.ipv6_addrs.empty() && !intf.ipv6_addrs.empty()) {
        stored.ipv6_addrs = intf.ipv6_addrs;
    }
}

const Interface* InterfaceConfig::Find(const std::string& name) const {
    const auto position = positions_.find(name);
    return position == positions_.end() ? nullptr : &interfaces_[position->second];
}

void InterfaceConfig::ReadInterfaces(const std::string& list_path, const std::string& name_prefix,
                                     ConfigAddrFamily family, const EntryStep& read_ipv4,
                                     const EntryStep& read_extra) {
    for (const std::string& key : get_key_list(list_path)) {
        const std::string entry = list_path + "{" + key;
        Interface intf;
        if (family == ConfigAddrFamily::IPv4) {
            read_ipv4(entry, intf);
        } else if (family == ConfigAddrFamily::IPv6) {
            intf.ipv6_addrs = get_intf_ipv6_addr_mask_list(entry + "}/ipv6/address");
        }
        if (read_extra) {
            read_extra(entry, intf);
        }
        intf.vrf_name = get_vrf_name(entry + "}/vrf");
        intf.name = name_prefix + key;
        MergeConfigAndInsert(intf);
    }
}

}  // namespace config_valid
}  // namespace ip_application
