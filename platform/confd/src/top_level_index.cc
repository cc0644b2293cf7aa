#include "top_level_index.h"

#include <algorithm>

namespace confd::detail {
namespace {

bool is_entry(const lysc_node* schema) {
    return (schema->nodetype & (LYS_LIST | LYS_LEAFLIST)) != 0;
}

// libyang's equality of two instances of one list or leaf-list: their keys
// or value; entries that may repeat (lists without keys) by their subtrees.
bool same_entry(const lyd_node* a, const lyd_node* b) {
    const uint32_t options = lysc_is_dup_inst_list(a->schema) ? LYD_COMPARE_FULL_RECURSION : 0;
    return lyd_compare_single(a, b, options) == LY_SUCCESS;
}

bool hash_before(const std::pair<uint32_t, const lyd_node*>& a,
                 const std::pair<uint32_t, const lyd_node*>& b) {
    return a.first < b.first;
}

}  // namespace

TopLevelIndex::TopLevelIndex(const lyd_node* first) {
    for (const lyd_node* node = first; node != nullptr; node = node->next) {
        if (node->schema == nullptr) {
            continue;  // an opaque node: no path names it
        }
        first_.emplace(node->schema, node);  // keeps the first instance
        if (is_entry(node->schema)) {
            entries_.emplace_back(node->hash, node);
        }
    }
    std::stable_sort(entries_.begin(), entries_.end(), hash_before);
}

const lyd_node* TopLevelIndex::first_instance(const lysc_node* schema) const {
    auto found = first_.find(schema);
    return found != first_.end() ? found->second : nullptr;
}

const lyd_node* TopLevelIndex::counterpart(const lyd_node* node) const {
    if (node->schema == nullptr) {
        return nullptr;
    }
    if (!is_entry(node->schema)) {
        return first_instance(node->schema);
    }
    const auto range = std::equal_range(entries_.begin(), entries_.end(),
                                        std::make_pair(node->hash, node), hash_before);
    for (auto it = range.first; it != range.second; ++it) {
        if (it->second->schema == node->schema && same_entry(it->second, node)) {
            return it->second;
        }
    }
    return nullptr;
}

}  // namespace confd::detail
