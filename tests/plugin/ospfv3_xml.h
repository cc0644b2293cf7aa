// Entries of the internal OSPFv3 interface list as XML of the project's data
// model, to go inside Internal() (configuration_xml.h).
#ifndef TESTS_PLUGIN_OSPFV3_XML_H
#define TESTS_PLUGIN_OSPFV3_XML_H

#include <cstdint>
#include <optional>
#include <string>

namespace plugin_test {

// Without an index the entry has no ospfv3-pm-if-index leaf.
std::string Ospfv3Interface(uint32_t process_id, const std::string& area,
                            const std::string& intf_name, std::optional<uint32_t> ifindex);

}  // namespace plugin_test

#endif  // TESTS_PLUGIN_OSPFV3_XML_H
