// Reads which interfaces are assigned to OSPFv2 router processes, with each
// assignment's process, VRF, area and addresses.
#ifndef IP_APP_VALID_OSPFV2_CONFIG_H
#define IP_APP_VALID_OSPFV2_CONFIG_H

#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <tuple>

#include "ip_app_valid/generic_config.h"
#include "ip_app_valid/ospf_if.h"

namespace ip_application {
namespace config_valid {

using OspfIfList = std::list<std::shared_ptr<OspfIf>>;

class Ospfv2Config : public GenericConfig {
  public:
    // Reads IPv4 only; OSPFv2 has no IPv6 part.
    void ReadConfig(ConfigAddrFamily family) override;

    // One record per (interface name, process, VRF): a further address of a
    // known record is appended to it, anything else becomes a new record.
    void MergeConfigAndInsert(OspfIf& intf);

    uint8_t GetIpv4Netmask(unsigned int compound_id, const nettypes::IPv4Addr& area,
                           const std::string& intf_key, const nettypes::IPv4Addr& addr) const;
    unsigned int GetProcessIdFromCompoundId(unsigned int compound_id) const;
    std::string GetVrfName(unsigned int compound_id) const;

    const OspfIfList& interfaces() const { return interfaces_; }

  private:
    // The record of each (interface name, process, VRF).
    using RecordKey = std::tuple<std::string, uint32_t, std::string>;

    OspfIfList interfaces_;
    std::map<RecordKey, OspfIf*> records_;
    std::string intf_list_path_ = "/internal/ospf-interface-l3";
    std::string process_map_path_ = "/internal/ospf-index-to-proc-id";
};

}  // namespace config_valid
}  // namespace ip_application

#endif  // IP_APP_VALID_OSPFV2_CONFIG_H
