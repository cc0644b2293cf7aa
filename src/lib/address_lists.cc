// GenericConfig's readers of address lists: a list of entries keyed by any
// text, each with an address-and-length leaf "ip".
#include "ip_app_valid/confd_api.h"

#include "fault_report.h"
#include "ip_app_valid/generic_config.h"

namespace ip_application {
namespace config_valid {

namespace {

// The addresses of the entries in key order. An entry whose address is
// unspecified is left out and reported as a fault at the caller's site.
template <typename Mask>
std::list<Mask> ReadAddrMaskList(const GenericConfig& reader, const std::string& path,
                                 Mask (GenericConfig::*read)(const std::string&) const,
                                 const char* unspecified_format, const SourceSite& site) {
    std::list<Mask> addrs;
    for (const std::string& key : reader.get_key_list(path)) {
        Mask addr = (reader.*read)(path + "{" + key + "}/ip");
        if (addr.IsUnspecified()) {
            ReportFault(site, unspecified_format, key.c_str());
            continue;
        }
        addrs.push_back(addr);
    }
    return addrs;
}

}  // namespace

std::list<nettypes::IPv4AddrMask> GenericConfig::get_intf_ipv4_addr_mask_list(
    const std::string& path) const {
    return ReadAddrMaskList<nettypes::IPv4AddrMask>(*this, path, &GenericConfig::get_ipv4_addr_mask,
                                                    "Unspecified IPv4 address for key '%s'",
                                                    IPAPP_SOURCE_SITE);
}

std::list<nettypes::IPv6AddrMask> GenericConfig::get_intf_ipv6_addr_mask_list(
    const std::string& path) const {
    return ReadAddrMaskList<nettypes::IPv6AddrMask>(*this, path, &GenericConfig::get_ipv6_addr_mask,
                                                    "Unspecified IPv6 address for key '%s'",
                                                    IPAPP_SOURCE_SITE);
}

}  // namespace config_valid
}  // namespace ip_application
