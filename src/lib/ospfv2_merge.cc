#include "ip_app_valid/ospfv2_config.h"

#include <memory>

namespace ip_application {
namespace config_valid {

void Ospfv2Config::MergeConfigAndInsert(OspfIf& intf) {
    // The area is not part of the match: a further address keeps the area of
    // the first entry.
    for (const std::shared_ptr<OspfIf>& stored : interfaces_) {
        if (stored->intf_name == intf.intf_name && stored->process_id == intf.process_id &&
            stored->vrf_name == intf.vrf_name) {
            if (!intf.addrs.empty()) {
                stored->addrs.push_back(intf.addrs.front());
            }
            return;
        }
    }
    interfaces_.push_back(std::make_shared<OspfIf>(intf));
}

}  // namespace config_valid
}  // namespace ip_application
