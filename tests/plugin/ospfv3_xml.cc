#include "ospfv3_xml.h"

namespace plugin_test {

namespace {

std::string Element(const std::string& name, const std::string& content) {
    return "<" + name + ">" + content + "</" + name + ">";
}

}  // namespace

std::string Ospfv3Interface(uint32_t process_id, const std::string& area,
                            const std::string& intf_name, std::optional<uint32_t> ifindex) {
    std::string body = Element("ospfv3-pm-proc-id", std::to_string(process_id)) +
                       Element("ospfv3-pm-area-id", area) + Element("ospfv3-pm-if-name", intf_name);
    if (ifindex) {
        body += Element("ospfv3-pm-if-index", std::to_string(*ifindex));
    }
    return Element("ospfv3-interface-l3", body);
}

}  // namespace plugin_test
