#include "tag_hash.h"

#include <charconv>
#include <optional>

#include "confd_datastore.h"
#include "schema_extensions.h"

namespace confd::detail {
namespace {

std::optional<uint32_t> pinned_hash(const lysc_node* node) {
    const std::vector<std::string> pins = extension_arguments(node, "id-value");
    if (pins.empty()) {
        return std::nullopt;
    }
    uint32_t value = 0;
    const std::string& text = pins.front();
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) {
        throw confdstore::Error(std::string("bad id-value '") + text + "' on node '" + node->name +
                                "'");
    }
    return value;
}

}  // namespace

uint32_t name_hash(std::string_view text) {
    uint32_t hash = 2166136261u;
    for (unsigned char c : text) {
        hash ^= c;
        hash *= 16777619u;
    }
    return hash & 0x7fffffffu;
}

std::map<std::string, uint32_t> tag_table(const std::vector<const lysc_node*>& nodes) {
    std::map<std::string, uint32_t> pins;
    for (const lysc_node* node : nodes) {
        auto pin = pinned_hash(node);
        if (!pin) {
            continue;
        }
        auto [entry, added] = pins.emplace(node->name, *pin);
        if (!added && entry->second != *pin) {
            throw confdstore::Error(std::string("conflicting id-values for node name '") +
                                    node->name + "'");
        }
    }
    std::map<std::string, uint32_t> table;
    std::map<uint32_t, std::string> names;
    for (const lysc_node* node : nodes) {
        const std::string name = node->name;
        if (table.count(name) != 0) {
            continue;
        }
        auto pin = pins.find(name);
        const uint32_t hash = pin != pins.end() ? pin->second : name_hash(name);
        auto [owner, added] = names.emplace(hash, name);
        if (!added) {
            throw confdstore::Error("tag hash collision between node names '" + owner->second +
                                    "' and '" + name + "' (" + std::to_string(hash) + ")");
        }
        table.emplace(name, hash);
    }
    return table;
}

}  // namespace confd::detail
