#include "snapshot.h"

#include <arpa/inet.h>

#include <sstream>
#include <stdexcept>

namespace plugin_test {

using ip_application::config_valid::Config;
using ip_application::config_valid::ConfigAddrFamily;
using ip_application::config_valid::GenericConfig;
using ip_application::config_valid::Interface;
using ip_application::config_valid::InterfaceConfig;
using ip_application::config_valid::OspfIf;

namespace {

// Splits "address/length"; the length is full_length when absent.
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

std::vector<std::string> Split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);) {
        parts.push_back(part);
    }
    return parts;
}

template <typename Mask>
std::list<Mask> Addresses(const std::string& list, Mask (*parse)(const std::string&)) {
    std::list<Mask> addrs;
    for (const std::string& addr : Split(list, ',')) {
        addrs.push_back(parse(addr));
    }
    return addrs;
}

InterfaceConfig& ReaderFor(Config& config, const std::string& name) {
    for (InterfaceConfig* reader : config.interface_configs) {
        const char* prefix = reader == &config.l3_config   ? "l3 "
                             : reader == &config.lo_config ? "loopback "
                                                           : "mgmt ";
        if (name.rfind(prefix, 0) == 0) {
            return *reader;
        }
    }
    throw std::invalid_argument("no reader for " + name);
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

Interface ParseInterface(const std::string& record) {
    std::vector<std::string> fields = Split(record, '|');
    fields.resize(5);
    Interface intf;
    intf.name = fields[0];
    intf.vrf_name = record.find('|') == std::string::npos ? "global" : fields[1];
    intf.ipv4_addrs = Addresses(fields[2], V4);
    intf.ipv6_addrs = Addresses(fields[3], V6);
    limid_l3_vlan_from_components(&intf.lim_id, fields[4].empty() ? 0 : std::stoi(fields[4]));
    return intf;
}

OspfIf ParseOspfIf(const std::string& record) {
    std::vector<std::string> fields = Split(record, '|');
    fields.resize(5);
    OspfIf assignment;
    assignment.intf_name = fields[0];
    assignment.process_id = std::stoul(fields[1]);
    assignment.vrf_name = fields[2];
    assignment.area = Addr4(fields[3]);
    assignment.addrs = Addresses(fields[4], V4);
    return assignment;
}

std::unique_ptr<Config> SnapshotOf(const std::vector<std::string>& interfaces,
                                   const std::vector<std::string>& assignments) {
    auto config = std::make_unique<Config>();
    for (GenericConfig* reader : std::initializer_list<GenericConfig*>{
             &config->ospfv2_config, &config->static_route_config, &config->l3_config,
             &config->lo_config, &config->mgmt_config}) {
        reader->ReadConfigIfNeeded(ConfigAddrFamily::IPv4);
        reader->ReadConfigIfNeeded(ConfigAddrFamily::IPv6);
    }
    for (const std::string& record : interfaces) {
        const Interface intf = ParseInterface(record);
        ReaderFor(*config, intf.name).MergeConfigAndInsert(intf);
    }
    for (const std::string& record : assignments) {
        OspfIf assignment = ParseOspfIf(record);
        config->ospfv2_config.MergeConfigAndInsert(assignment);
    }
    return config;
}

}  // namespace plugin_test
