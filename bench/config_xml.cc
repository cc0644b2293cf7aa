#include "config_xml.h"

#include <cstdio>
#include <fstream>
#include <stdexcept>

namespace ipapp_bench {

void XmlWriter::Open(const std::string& name, const char* ns) {
    out_ += '<' + name;
    if (ns != nullptr) {
        out_ += std::string(" xmlns=\"") + ns + '"';
    }
    out_ += '>';
    open_.push_back(name);
    ++nodes_;
}

void XmlWriter::Close() {
    out_ += "</" + open_.back() + ">\n";
    open_.pop_back();
}

void XmlWriter::Leaf(const std::string& name, const std::string& value) {
    out_ += '<' + name + '>' + value + "</" + name + ">\n";
    ++nodes_;
}

void Nested(XmlWriter& xml, std::initializer_list<const char*> containers, const std::string& leaf,
            const std::string& value) {
    for (const char* container : containers) {
        xml.Open(container);
    }
    xml.Leaf(leaf, value);
    for (size_t n = 0; n < containers.size(); ++n) {
        xml.Close();
    }
}

std::string VrfName(size_t number) {
    return "vrf" + std::to_string(number);
}

void VrfNames(XmlWriter& xml) {
    xml.Open("vrf-config");
    for (size_t n = 1; n <= kVrfs; ++n) {
        xml.Open("indexTOstring");
        xml.Leaf("n", std::to_string(n));
        xml.Leaf("vname", VrfName(n));
        xml.Close();
    }
    xml.Close();
}

std::string Format(const char* format, size_t a, size_t b, size_t c) {
    char text[128];
    std::snprintf(text, sizeof text, format, a, b, c);
    return text;
}

void RouteEntry(XmlWriter& xml, const Route& route) {
    xml.Open("rtmStaticRtEntry");
    xml.Leaf("rtmStaticRtVrfCmpntId", std::to_string(route.vrf));
    xml.Leaf("rtmStaticRtDestAddrType", route.ipv6 ? "ipv6" : "ipv4");
    xml.Leaf("rtmStaticRtDestAddr", route.destination);
    xml.Leaf("rtmStaticRtDestPrefixLen", std::to_string(route.prefix));
    xml.Leaf("rtmStaticRtFteIndex", std::to_string(route.fte));
    xml.Leaf("rtmStaticRtNextHop", route.next_hop);
    xml.Leaf("rtmStaticRtPreference", "1");
    xml.Close();
}

void OutputInterfaceRow(XmlWriter& xml, const Route& route, const std::string& interface) {
    xml.Open("rtmStaticRtEntry-global", kRtmNs);
    xml.Leaf("index", std::to_string(route.fte));
    xml.Leaf("destination", route.destination);
    xml.Leaf("prefix-len", std::to_string(route.prefix));
    xml.Leaf("next-hop", route.next_hop);
    xml.Leaf("interface-name", interface);
    xml.Close();
}

void WriteFile(const std::string& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary);
    file << text;
    if (!file.flush()) {
        throw std::runtime_error(path + ": cannot write");
    }
}

}  // namespace ipapp_bench
