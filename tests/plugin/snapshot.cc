#include "snapshot.h"

#include <arpa/inet.h>

#include <stdexcept>

namespace plugin_test {

using ip_application::config_valid::Config;
using ip_application::config_valid::ConfigAddrFamily;
using ip_application::config_valid::GenericConfig;
using ip_application::config_valid::Interface;
using ip_application::config_valid::OspfIf;

namespace {

// Splits "address/length"; the length is 32 or 128 when absent.
template <typename Raw>
std::pair<Raw, unsigned> ParsePrefix(const std::string& text, int family, unsigned full_length) {
    const size_t slash = text.find('/');
    Raw raw{};
    if (inet_pton(family, text.substr(0, slash).c_str(), &raw) != 1) {
        throw std::invalid_argument("not an address: " + text);
    }
    const unsigned length =
        slash == std::string::npos ? full_length : std::stoul(text.substr(slash + 1));
    return {raw, length};
}

}  // namespace

nettypes::IPv4AddrMask V4(const std::string& text) {
    const auto [raw, length] = ParsePrefix<in_addr>(text, AF_INET, 32);
    return nettypes::IPv4AddrMask(ntohl(raw.s_addr), length);
}

nettypes::IPv6AddrMask V6(const std::string& text) {
    const auto [raw, length] = ParsePrefix<in6_addr>(text, AF_INET6, 128);
    return nettypes::IPv6AddrMask(raw, length);
}

nettypes::IPv4Addr Addr4(const std::string& text) {
    return V4(text).addr();
}

Interface MakeInterface(const InterfaceSpec& spec) {
    Interface intf;
    intf.name = spec.name;
    intf.vrf_name = spec.vrf;
    for (const std::string& addr : spec.ipv4) {
        intf.ipv4_addrs.push_back(V4(addr));
    }
    for (const std::string& addr : spec.ipv6) {
        intf.ipv6_addrs.push_back(V6(addr));
    }
    limid_l3_vlan_from_components(&intf.lim_id, spec.vlan);
    return intf;
}

std::unique_ptr<Config> EmptySnapshot() {
    auto config = std::make_unique<Config>();
    for (GenericConfig* reader : std::initializer_list<GenericConfig*>{
             &config->ospfv2_config, &config->static_route_config, &config->l3_config,
             &config->lo_config, &config->mgmt_config}) {
        reader->ReadConfigIfNeeded(ConfigAddrFamily::IPv4);
        reader->ReadConfigIfNeeded(ConfigAddrFamily::IPv6);
    }
    return config;
}

OspfIf MakeOspfIf(const std::string& intf_name, uint32_t process_id, const std::string& vrf,
                  const std::string& area, const std::string& addr) {
    OspfIf record;
    record.process_id = process_id;
    record.vrf_name = vrf;
    record.area = Addr4(area);
    record.intf_name = intf_name;
    record.addrs.push_back(V4(addr));
    return record;
}

}  // namespace plugin_test
