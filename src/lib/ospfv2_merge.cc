#include "ip_app_valid/ospfv2_config.h"

#include <memory>

namespace ip_application {
namespace config_valid {

void Ospfv2Config::MergeConfigAndInsert(OspfIf& intf) {
    // The area is not part of the match: a further address keeps the area of
    // the first entry.
    OspfIf*& stored = records_[RecordKey(intf.intf_name, intf.process_id, intf.vrf_name)];
    if (stored == nullptr) {
        interfaces_.push_back(std::make_shared<OspfIf>(intf));
        stored = interfaces_.back().get();
    } else if (!intf.addrs.empty()) {
        stored->addrs.push_back(intf.addrs.front());
    }
}

}  // namespace config_valid
}  // namespace ip_application
