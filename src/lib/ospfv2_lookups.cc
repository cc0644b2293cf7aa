// Ospfv2Config's lookups of one OSPFv2 assignment's netmask, process and VRF.
// A failed lookup is logged with the compound identifier and gives 0 or "".
#include "ip_app_valid/confd_api.h"

#include "ip_app_valid/ospfv2_config.h"
#include "ip_app_valid/validate_logger.h"
#include "read_value.h"

namespace ip_application {
namespace config_valid {

namespace {

constexpr size_t kVrfNameSize = 256;

}  // namespace

uint8_t Ospfv2Config::GetIpv4Netmask(unsigned int compound_id, const nettypes::IPv4Addr& area,
                                     const std::string& intf_key,
                                     const nettypes::IPv4Addr& addr) const {
    uint8_t prefix_len = 0;
    if (maapi_get_u_int8_elem(maapi_sock_, thandle(), &prefix_len,
                              "%s{%u %s %s %s}/ospf-pm-ip-netmask", intf_list_path_.c_str(),
                              compound_id, area.to_string().c_str(), intf_key.c_str(),
                              addr.to_string().c_str()) != CONFD_OK) {
        // The text says process ID but names the compound identifier.
        ValidateLogger::Log("Failed to get IPv4 netmask from process ID %u!", compound_id);
        return 0;
    }
    return prefix_len;
}

unsigned int Ospfv2Config::GetProcessIdFromCompoundId(unsigned int compound_id) const {
    uint32_t process_id = 0;
    if (maapi_get_u_int32_elem(maapi_sock_, thandle(), &process_id, "%s{%u}/proc_id",
                               process_map_path_.c_str(), compound_id) != CONFD_OK) {
        ValidateLogger::Log("Failed to get process ID from compound ID %u!", compound_id);
        return 0;
    }
    return process_id;
}

std::string Ospfv2Config::GetVrfName(unsigned int compound_id) const {
    char vrf_name[kVrfNameSize] = {};
    if (maapi_get_str_elem(maapi_sock_, thandle(), vrf_name, sizeof vrf_name, "%s{%u}/vrf_name",
                           process_map_path_.c_str(), compound_id) != CONFD_OK) {
        ValidateLogger::Log("Failed to get VRF name from compound ID %u!", compound_id);
    }
    // A failed read may leave part of a text behind; the name ends at the
    // first zero byte either way.
    return BufferText(vrf_name, sizeof vrf_name);
}

}  // namespace config_valid
}  // namespace ip_application
