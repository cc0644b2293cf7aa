// Pieces of configuration XML that the generators share: an element writer
// that counts data nodes, the modules' namespaces, the VRF names, static
// route rows and writing a file.
#ifndef IPAPP_BENCH_CONFIG_XML_H
#define IPAPP_BENCH_CONFIG_XML_H

#include <cstddef>
#include <initializer_list>
#include <string>
#include <vector>

namespace ipapp_bench {

constexpr const char* kDeviceNs = "urn:ipapp:yang:device-config";
constexpr const char* kIpappNs = "urn:ipapp:yang:ipapp";
constexpr const char* kRtmNs = "urn:ipapp:yang:DC-RTM-MIB";
constexpr const char* kInternalNs = "urn:ipapp:yang:metacli-internal";

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
    size_t vrf;  // the VRF's component identifier; 0 is the global VRF
    bool ipv6;
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

}  // namespace ipapp_bench

#endif
