#include "tag_registry.h"

#include <mutex>
#include <unordered_map>

namespace confd::detail {
namespace {

struct Registry {
    std::mutex mutex;
    std::unordered_map<uint32_t, std::string> names;
};

Registry& registry() {
    static Registry instance;
    return instance;
}

}  // namespace

void publish_tags(const std::map<std::string, uint32_t>& tags) {
    Registry& reg = registry();
    std::lock_guard<std::mutex> lock(reg.mutex);
    for (const auto& [name, hash] : tags) {
        reg.names[hash] = name;
    }
}

std::optional<std::string> tag_name(uint32_t hash) {
    Registry& reg = registry();
    std::lock_guard<std::mutex> lock(reg.mutex);
    auto found = reg.names.find(hash);
    if (found == reg.names.end()) {
        return std::nullopt;
    }
    return found->second;
}

}  // namespace confd::detail
