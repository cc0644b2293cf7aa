// OSPFv2 cross checks: an interface assigned to an OSPFv2 process keeps the
// addresses and the VRF it was assigned with. Layer-3 interfaces are checked
// before loopbacks; management interfaces take no part.
#include "ip_app_valid/validate_config.h"

#include <algorithm>
#include <list>

namespace ip_application {
namespace config_valid {

namespace {

bool Contains(const std::list<nettypes::IPv4AddrMask>& addrs, const nettypes::IPv4AddrMask& addr) {
    return std::find(addrs.begin(), addrs.end(), addr) != addrs.end();
}

// "<process> vrf <vrf> area <area as number> (<area as address>)"
std::string AssignmentText(const OspfIf& assignment) {
    return std::to_string(assignment.process_id) + " vrf " + assignment.vrf_name + " area " +
           std::to_string(assignment.area.to_uint32()) + " (" + assignment.area.to_string() + ")";
}

// Applies check to each assignment, in list order, with the interface of the
// reader that bears the assignment's name (the reader holds one record per
// name); the first failure ends the walk.
template <typename Check>
std::optional<std::string> FirstAssignmentFailure(const InterfaceConfig& reader,
                                                  const Ospfv2Config& ospf, Check check) {
    for (const std::shared_ptr<OspfIf>& assignment : ospf.interfaces()) {
        const Interface* intf = reader.Find(assignment->intf_name);
        if (intf == nullptr) {
            continue;
        }
        if (std::optional<std::string> failure = check(*assignment, *intf)) {
            return failure;
        }
    }
    return std::nullopt;
}

// Every address OSPF runs on must still be on the interface (address and
// mask); when the interface has more addresses than OSPF knows, the first one
// OSPF lacks was added.
std::optional<std::string> AddressFailure(const OspfIf& assignment, const Interface& intf) {
    for (const nettypes::IPv4AddrMask& addr : assignment.addrs) {
        if (!Contains(intf.ipv4_addrs, addr)) {
            return addr.to_string() +
                   " cannot be modified nor deleted, it is assigned to router ospf " +
                   AssignmentText(assignment);
        }
    }
    if (assignment.addrs.size() < intf.ipv4_addrs.size()) {
        for (const nettypes::IPv4AddrMask& addr : intf.ipv4_addrs) {
            if (!Contains(assignment.addrs, addr)) {
                return addr.to_string() +
                       " cannot be added after interface is assigned to router ospf " +
                       AssignmentText(assignment);
            }
        }
    }
    return std::nullopt;
}

std::optional<std::string> VrfFailure(const OspfIf& assignment, const Interface& intf) {
    if (assignment.vrf_name == intf.vrf_name) {
        return std::nullopt;
    }
    return intf.name + " vrf " + intf.vrf_name + " and router ospf " +
           std::to_string(assignment.process_id) + " vrf " + assignment.vrf_name +
           " cannot be associated with divergent VRF";
}

}  // namespace

int32_t ValidateConfig::ValidateOspfv2(const Config& config) {
    const bool passes = ValidateOspfv2CrossIfL3(config.l3_config, config.ospfv2_config) &&
                        ValidateOspfv2CrossIfLo(config.lo_config, config.ospfv2_config);
    return passes ? 0 : -1;
}

bool ValidateConfig::ValidateOspfv2CrossIfL3(const L3Config& l3, const Ospfv2Config& ospf) {
    return !Fails(FirstAssignmentFailure(l3, ospf, AddressFailure));
}

bool ValidateConfig::ValidateOspfv2CrossIfLo(const LoConfig& lo, const Ospfv2Config& ospf) {
    return !Fails(FirstAssignmentFailure(lo, ospf, AddressFailure));
}

int32_t ValidateConfig::ValidateOspfv2Vrf(const Config& config) {
    const bool passes = ValidateOspfv2CrossIfL3Vrf(config.l3_config, config.ospfv2_config) &&
                        ValidateOspfv2CrossIfLoVrf(config.lo_config, config.ospfv2_config);
    return passes ? 0 : -1;
}

bool ValidateConfig::ValidateOspfv2CrossIfL3Vrf(const L3Config& l3, const Ospfv2Config& ospf) {
    return !Fails(FirstAssignmentFailure(l3, ospf, VrfFailure));
}

bool ValidateConfig::ValidateOspfv2CrossIfLoVrf(const LoConfig& lo, const Ospfv2Config& ospf) {
    return !Fails(FirstAssignmentFailure(lo, ospf, VrfFailure));
}

}  // namespace config_valid
}  // namespace ip_application
