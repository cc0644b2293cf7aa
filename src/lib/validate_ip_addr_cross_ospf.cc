// The lower-layer rule: the VLAN of a layer-3 interface cannot change while
// OSPFv3 runs on the interface that the committed VLAN denotes. The committed
// VLAN comes from the running configuration (CDB), the new one from the
// transaction (MAAPI); OSPFv3 is found among the internal OSPFv3 interface
// entries by interface index.
#include "ip_app_valid/confd_api.h"

#include <arpa/inet.h>
#include <limid.h>
#include <nettypes/ipv4_addr.h>
#include <velconfd.h>

#include <boost/asio/ip/address_v4.hpp>

#include "cursor_walk.h"
#include "ip_app_valid.h"
#include "ip_app_valid/velconfd_cdb_session.h"
#include "read_value.h"
#include "transaction_context.h"

using ip_application::config_valid::BufferText;
using ip_application::config_valid::Config;
using ip_application::config_valid::CursorWalk;
using ip_application::config_valid::HostState;
using ip_application::config_valid::TransactionHandle;

namespace {

constexpr const char* kOspfv3IntfPath = "/internal/ospfv3-interface-l3";
constexpr const char* kVlanPath = "/config/interface/l3{%s}/lower-layer-if/vlan";

// The interface's VLAN in the running configuration; false when it has none
// (a new interface, or no lower layer yet) or it cannot be read.
bool CommittedVlan(confd_trans_ctx* tctx, const std::string& name, int32_t* vlan) {
    VelConfdCdbSession session(velconfd_instance_get(HostState(*tctx)), CDB_RUNNING, true);
    return cdb_get_int32(session.Socket(), vlan, kVlanPath, name.c_str()) == CONFD_OK;
}

// True when the transaction keeps the committed VLAN; a VLAN that cannot be
// read (deleted in the transaction) is a change.
bool VlanUnchanged(int32_t maapi_sock, int thandle, const std::string& name, int32_t old_vlan) {
    int32_t new_vlan = 0;
    return maapi_get_int32_elem(maapi_sock, thandle, &new_vlan, kVlanPath, name.c_str()) ==
               CONFD_OK &&
           new_vlan == old_vlan;
}

// The interface index of the layer-3 interface over the VLAN. A VLAN out of
// range gives index 0.
uint32_t L3VlanIfIndex(int32_t vlan) {
    limid_t lim_id{};
    limid_l3_vlan_from_components(&lim_id, vlan);
    uint32_t ifindex = 0;
    limid_to_ifindex(lim_id, &ifindex);
    return ifindex;
}

// The interface index an OSPFv3 entry records; 0 when it cannot be read.
uint32_t Ospfv3EntryIfIndex(int32_t maapi_sock, int thandle, uint32_t process_id,
                            const char* area_text, const std::string& intf_name) {
    uint32_t ifindex = 0;
    maapi_get_u_int32_elem(maapi_sock, thandle, &ifindex, "%s{ %u %s %s }/ospfv3-pm-if-index",
                           kOspfv3IntfPath, process_id, area_text, intf_name.c_str());
    return ifindex;
}

// The area's numeric value; boost::system::system_error when the text is not
// a dotted quad, which inet_ntop never writes.
uint32_t AreaNumber(const char* area_text) {
    return nettypes::IPv4Addr(boost::asio::ip::make_address_v4(area_text).to_uint()).to_uint32();
}

}  // namespace

// The rule itself; validate_lower_layer_cross_prot forwards to it. The
// keypath names the interface at v[1]: /config/interface/l3{name}/lower-layer-if.
// Its assertions name it by its signature, so it is a plain static function.
static int32_t validate_lower_layer_cross_ospfv3(int32_t maapi_sock, confd_trans_ctx* tctx,
                                                 confd_hkeypath_t* keypath, confd_value_t*) {
    const int thandle = TransactionHandle(*tctx);
    if (maapi_exists(maapi_sock, thandle, kOspfv3IntfPath) != 1 ||
        maapi_num_instances(maapi_sock, thandle, kOspfv3IntfPath) == 0) {
        return 0;
    }
    const char* key = CONFD_GET_CBUFPTR(&keypath->v[1][0]);
    const std::string name = BufferText(key, keypath->v[1][0].val.buf.size);
    int32_t old_vlan = 0;
    if (!CommittedVlan(tctx, name, &old_vlan) ||
        VlanUnchanged(maapi_sock, thandle, name, old_vlan)) {
        return 0;
    }

    CursorWalk walk(maapi_sock, thandle, kOspfv3IntfPath);
    maapi_cursor& mc_intf = walk.cursor();
    const uint32_t old_ifindex = L3VlanIfIndex(old_vlan);
    for (walk.Next(); walk.HasEntry(); walk.Next()) {
        char area_text[INET_ADDRSTRLEN] = {};
        const in_addr area = CONFD_GET_IPV4(&mc_intf.keys[1]);
        inet_ntop(AF_INET, &area, area_text, sizeof area_text);
        const uint32_t process_id = CONFD_GET_UINT32(&mc_intf.keys[0]);
        const char* intf_key = CONFD_GET_CBUFPTR(&mc_intf.keys[2]);
        const std::string intf_name = BufferText(intf_key, mc_intf.keys[2].val.buf.size);
        if (Ospfv3EntryIfIndex(maapi_sock, thandle, process_id, area_text, intf_name) ==
            old_ifindex) {
            confd_trans_seterr(
                tctx, "vlan %d cannot be changed, it is assigned to router ospfv3 %d area %u (%s)",
                old_vlan, process_id, AreaNumber(area_text), area_text);
            return -1;
        }
    }
    return 0;
}

int32_t validate_lower_layer_cross_prot(int32_t maapi_sock, confd_trans_ctx* tctx,
                                        confd_hkeypath_t* keypath, confd_value_t* newval, Config&) {
    return validate_lower_layer_cross_ospfv3(maapi_sock, tctx, keypath, newval);
}
