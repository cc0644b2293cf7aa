// Base of every configuration reader: the MAAPI socket and transaction of the
// current callback, the read-once flags of the two address families, and the
// helpers through which readers touch ConfD.
#ifndef IP_APP_VALID_GENERIC_CONFIG_H
#define IP_APP_VALID_GENERIC_CONFIG_H

#include "ip_app_valid/confd_api.h"

#include <limid.h>
#include <nettypes/ipv4_addr.h>
#include <nettypes/ipv4_addr_mask.h>
#include <nettypes/ipv6_addr.h>
#include <nettypes/ipv6_addr_mask.h>

#include <list>
#include <string>
#include <vector>

#include "ip_app_valid/config_addr_family.h"

namespace ip_application {
namespace config_valid {

class GenericConfig {
  public:
    GenericConfig() = default;
    virtual ~GenericConfig() = default;

    // Reads one address family of the candidate configuration into the reader.
    virtual void ReadConfig(ConfigAddrFamily family) = 0;

    // Calls ReadConfig(family) unless that family was read before, then marks
    // it read. An exception from ReadConfig leaves the family unread; any
    // family other than IPv4 and IPv6 is ignored.
    void ReadConfigIfNeeded(ConfigAddrFamily family);

    // Binds the callback's MAAPI socket and transaction; nothing else changes.
    void Bind(int32_t maapi_sock, confd_trans_ctx* tctx);

    int32_t maapi_sock() const { return maapi_sock_; }
    confd_trans_ctx* tctx() const { return tctx_; }
    bool ipv4_read() const { return ipv4_read_; }
    bool ipv6_read() const { return ipv6_read_; }

    // Element readers: an absent element or a failed read gives the unset
    // value (unspecified address, zero identifier).
    nettypes::IPv4AddrMask get_ipv4_addr_mask(const std::string& path) const;
    nettypes::IPv6AddrMask get_ipv6_addr_mask(const std::string& path) const;
    limid_t get_intf_lim_id(const std::string& path) const;
    // "global" when the leaf is absent, "" when it exists but cannot be read.
    std::string get_vrf_name(const std::string& path) const;

    // Value converters: addresses come as binary values in network order.
    nettypes::IPv4Addr get_ipv4_addr(const confd_value_t& addr) const;
    nettypes::IPv6Addr get_ipv6_addr(const confd_value_t& addr) const;
    nettypes::IPv4AddrMask get_ipv4_addr_mask(const confd_value_t& addr,
                                              const confd_value_t& prefix) const;
    nettypes::IPv6AddrMask get_ipv6_addr_mask(const confd_value_t& addr,
                                              const confd_value_t& prefix) const;
    // Bytes as "0a:00:00:01"; "" for a value that is not binary.
    std::string get_hex_from_bin(const confd_value_t& value) const;
    std::string get_vrf_name_from_id(const confd_value_t& id) const;
    // The output interface of the route a cursor over the route table stands
    // on, in the interface readers' form ("l3-7" gives "l3 7").
    std::string get_intf_name_from_route(maapi_cursor& cursor) const;

    // List readers, in the order MAAPI delivers the entries.
    std::list<std::string> get_key_list(const std::string& path) const;
    std::list<std::vector<std::string>> get_key_list(const std::string& path, unsigned n) const;
    std::list<nettypes::IPv4AddrMask> get_intf_ipv4_addr_mask_list(const std::string& path) const;
    std::list<nettypes::IPv6AddrMask> get_intf_ipv6_addr_mask_list(const std::string& path) const;

  protected:
    // The transaction handle of the bound transaction.
    int thandle() const;

    int32_t maapi_sock_ = -1;
    confd_trans_ctx* tctx_ = nullptr;
    bool ipv4_read_ = false;
    bool ipv6_read_ = false;
};

}  // namespace config_valid
}  // namespace ip_application

#endif  // IP_APP_VALID_GENERIC_CONFIG_H
