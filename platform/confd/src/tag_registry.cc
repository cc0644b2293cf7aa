#include "tag_registry.h"

#include <mutex>
#include <unordered_map>

#include "call_trace.h"
#include "confd_lib.h"

namespace confd::detail {
namespace {

struct Registry {
    std::mutex mutex;
    std::unordered_map<uint32_t, std::string> names;
    std::unordered_map<std::string, uint32_t> hashes;
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
        reg.hashes[name] = hash;
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

std::optional<uint32_t> tag_hash(const std::string& name) {
    Registry& reg = registry();
    std::lock_guard<std::mutex> lock(reg.mutex);
    auto found = reg.hashes.find(name);
    if (found == reg.hashes.end()) {
        return std::nullopt;
    }
    return found->second;
}

}  // namespace confd::detail

extern "C" {

u_int32_t confd_str2hash(const char* str) {
    confd::detail::CallTrace trace("confd_str2hash");
    const u_int32_t hash = str != nullptr ? confd::detail::tag_hash(str).value_or(0) : 0;
    if (trace.on()) {
        trace.set_argument(str != nullptr ? str : "");
        trace.set_outcome(std::to_string(hash));
    }
    trace.returned(CONFD_OK);
    return hash;
}

char* confd_hash2str(u_int32_t hash) {
    // The text lives in a per-thread buffer until the next call, as a C
    // caller cannot own a std::string.
    thread_local std::string text;
    confd::detail::CallTrace trace("confd_hash2str");
    auto name = confd::detail::tag_name(hash);
    if (trace.on()) {
        trace.set_argument(std::to_string(hash));
        trace.set_outcome(name ? '"' + *name + '"' : "NULL");
    }
    trace.returned(CONFD_OK);
    if (!name) {
        return nullptr;
    }
    text = *name;
    return text.data();
}

}  // extern "C"
