// Base of the three interface readers: the interfaces read so far, in the
// order they were first met, and the kind of interface the reader reads.
#ifndef IP_APP_VALID_INTERFACE_CONFIG_H
#define IP_APP_VALID_INTERFACE_CONFIG_H

#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include "ip_app_valid/generic_config.h"
#include "ip_app_valid/interface.h"
#include "ip_app_valid/interface_type.h"

namespace ip_application {
namespace config_valid {

class InterfaceConfig : public GenericConfig {
  public:
    explicit InterfaceConfig(InterfaceType type) : type_(type) {}

    // Merges a record into the vector by name: a new name is appended; for a
    // known name an empty IPv4 list, or else an empty IPv6 list, of the stored
    // record is filled from the incoming one. Nothing else changes.
    void MergeConfigAndInsert(const Interface& intf);

    const std::vector<Interface>& interfaces() const { return interfaces_; }
    // The record of that name, null when there is none; names are unique in
    // the vector, as merging keeps one record per name.
    const Interface* Find(const std::string& name) const;
    InterfaceType type() const { return type_; }

  protected:
    // Fills some leaves of the record of one list entry; entry is the list
    // path, "{" and the key, so a leaf path is entry + "}/<leaf>".
    using EntryStep = std::function<void(const std::string& entry, Interface& intf)>;

    // Reads one address family of every entry of the list at list_path, in
    // key order, and merges each record: the family's addresses (read_ipv4
    // for IPv4, the "ipv6/address" list for IPv6), then read_extra if given,
    // then the VRF. The record is named name_prefix followed by the key.
    void ReadInterfaces(const std::string& list_path, const std::string& name_prefix,
                        ConfigAddrFamily family, const EntryStep& read_ipv4,
                        const EntryStep& read_extra = nullptr);

    std::vector<Interface> interfaces_;
    InterfaceType type_;

  private:
    // The position of each name's record in the vector.
    std::unordered_map<std::string, size_t> positions_;
};

}  // namespace config_valid
}  // namespace ip_application

#endif  // IP_APP_VALID_INTERFACE_CONFIG_H
