// Configuration XML of the project's model, for the generators and the
// tests: an element writer that counts data nodes, the modules' namespaces,
// the VRF names, static route rows, writing a file, and small configurations
// composed as text.
#ifndef IPAPP_GENERATOR_CONFIG_XML_H
#define IPAPP_GENERATOR_CONFIG_XML_H

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

namespace ipapp_generator {

constexpr const char* kDeviceNs = "urn:ipapp:yang:device-config";
constexpr const char* kIpappNs = "urn:ipapp:yang:ipapp";
constexpr const char* kRtmNs = "urn:ipapp:yang:DC-RTM-MIB";
constexpr const char* kInternalNs = "urn:ipapp:yang:metacli-internal";

// "<name>content</name>"
std::string Element(const std::string& name, const std::string& content);

// Writes XML elements and counts them: every element is one data node.
class XmlWriter {
  public:
    explicit XmlWriter(std::string& out) : out_(out) {}

    void Open(const std::string& name, const char* ns = nullptr);
    void Close();
    void Leaf(const std::string& name, const std::string& value);
    size_t nodes() const { return nodes_; }

  private:
    std::string& out_;
    std::vector<std::string> open_;
    size_t nodes_ = 0;
};

// The containers one inside the other, the leaf in the innermost.
void Nested(XmlWriter& xml, std::initializer_list<const char*> containers, const std::string& leaf,
            const std::string& value);

// The VRFs of generated configurations: "vrf1" to "vrf16", whose component
// identifiers are their numbers.
constexpr size_t kVrfs = 16;
std::string VrfName(size_t number);
// The VRF names by number (/internal/vrf-config), inside /internal.
void VrfNames(XmlWriter& xml);

// snprintf of up to three numbers.
std::string Format(const char* format, size_t a, size_t b = 0, size_t c = 0);

struct Route {
    size_t vrf;        // the VRF's component identifier; 0 is the global VRF
    std::string type;  // "ipv4", "ipv6", "ipv4z", ...
    size_t fte;
    std::string destination;  // hex octets, as the route table keeps addresses
    int prefix;
    std::string next_hop;
};

// A row of the static route table.
void RouteEntry(XmlWriter& xml, const Route& route);
// The row naming a global route's output interface ("l3-7").
void OutputInterfaceRow(XmlWriter& xml, const Route& route, const std::string& interface);

// Throws std::runtime_error when the file cannot be written.
void WriteFile(const std::string& path, const std::string& text);

// An address's text as the route table keeps it: colon-separated hex
// octets. Throws std::invalid_argument for text that is no address.
std::string HexAddress(const std::string& address);

// The configuration root around interface entries, and the entries; body
// holds the entry's leaves and containers.
std::string Interfaces(const std::string& entries);
std::string L3(const std::string& name, const std::string& body = "");
std::string Mgmt(const std::string& name, const std::string& body = "");

// The IPv4 address leaves of an l3 or mgmt interface (secondaries: l3 only;
// an empty primary is left out), and the IPv6 container of any kind: its
// addresses and the router advertisement leaves given (nd/ra).
std::string IPv4(const std::string& primary, const std::vector<std::string>& secondaries = {});
std::string IPv6(const std::vector<std::string>& addrs, const std::string& ra_leaves = "");
std::string Vrf(const std::string& name);
std::string Vlan(int32_t vlan);

// A static route with its addresses as text, in forwarding table index 1.
struct RouteRow {
    std::string type;  // "ipv4", "ipv6", "ipv4z", ...
    std::string dest;
    int32_t prefix_len;
    std::string next_hop;
    std::string interface_name = "";  // the global route's output interface; "" for none
    uint32_t vrf_id = 0;
};

// The static route table with the rows, and the output interface rows of
// the rows that name one.
std::string Routes(const std::vector<RouteRow>& rows);

// The internal tables around their entries.
std::string Internal(const std::string& entries);
// The VRF name table with one entry.
std::string VrfConfig(size_t number, const std::string& name);
std::string OspfInterface(const std::string& compound, const std::string& area,
                          const std::string& intf, const std::string& addr, int netmask);
std::string OspfProcess(uint32_t compound, uint32_t process_id, const std::string& vrf);
// Without an index the entry has no ospfv3-pm-if-index leaf.
std::string Ospfv3Interface(uint32_t process_id, const std::string& area,
                            const std::string& intf_name, std::optional<uint32_t> ifindex);

}  // namespace ipapp_generator

#endif
