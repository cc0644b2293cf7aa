#include "ip_app_valid/ospfv2_config.h"

#include <boost/asio/ip/address_v4.hpp>

#include <memory>
#include <string>

namespace ip_application {
namespace config_valid {

namespace {

// Keys of an entry of the OSPFv2 interface list, in order.
enum OspfIfKey { kCompoundId, kArea, kIntfName, kAddr, kOspfIfKeyCount };

// A dotted-quad text as an address; boost::system::system_error when the
// text is not one.
nettypes::IPv4Addr ParseIPv4(const std::string& text) {
    return nettypes::IPv4Addr(boost::asio::ip::make_address_v4(text).to_uint());
}

}  // namespace

void Ospfv2Config::ReadConfig(ConfigAddrFamily family) {
    if (family != ConfigAddrFamily::IPv4) {
        return;
    }
    for (std::vector<std::string>& keys : get_key_list(intf_list_path_, kOspfIfKeyCount)) {
        std::string& intf_name = keys[kIntfName];
        const size_t dash = intf_name.find('-');
        if (dash == std::string::npos) {
            continue;
        }
        // Malformed texts throw (std::stoul, the address conversion) and end
        // the read; what was merged before stays.
        const unsigned int compound_id = std::stoul(keys[kCompoundId], nullptr, 10);
        const nettypes::IPv4Addr area = ParseIPv4(keys[kArea]);
        const nettypes::IPv4Addr addr = ParseIPv4(keys[kAddr]);
        // The netmask is keyed by the interface name as the list writes it.
        const uint8_t prefix_len = GetIpv4Netmask(compound_id, area, intf_name, addr);
        intf_name.replace(dash, 1, " ");

        OspfIf record;
        record.addrs.emplace_back(addr.to_uint32(), prefix_len);
        record.process_id = GetProcessIdFromCompoundId(compound_id);
        record.vrf_name = GetVrfName(compound_id);
        record.area = area;
        record.intf_name = intf_name;
        MergeConfigAndInsert(record);
    }
}

}  // namespace config_valid
}  // namespace ip_application
