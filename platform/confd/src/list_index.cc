#include "list_index.h"

#include <algorithm>

#include "key_order.h"
#include "typed_value.h"

namespace confd::detail {

std::optional<std::string> entry_key(const Schema& schema, const lyd_node* entry) {
    std::string key;
    const bool converted = for_each_key_leaf(schema, entry, [&key](const lyd_node* leaf) {
        auto value = TypedValue::of_node(leaf);
        if (value) {
            append_order_key(key, value->view());
        }
        return value.has_value();
    });
    return converted ? std::optional<std::string>(std::move(key)) : std::nullopt;
}

ListIndex::ListIndex(const Schema& schema, const lyd_node* first, const lysc_node* list) {
    for (const lyd_node* entry = first; entry != nullptr && entry->schema == list;
         entry = entry->next) {
        by_key_.emplace_back(entry_key(schema, entry).value_or(std::string()), entry);
    }
    if (by_key_.size() > 1) {
        std::stable_sort(by_key_.begin(), by_key_.end(),
                         [](const auto& a, const auto& b) { return a.first < b.first; });
    }
    const bool user_order = (list->flags & LYS_ORDBY_USER) != 0;
    entries_.reserve(by_key_.size());
    if (user_order) {
        for (const lyd_node* entry = first; entry != nullptr && entry->schema == list;
             entry = entry->next) {
            entries_.push_back(entry);
        }
    } else {
        for (const auto& item : by_key_) {
            entries_.push_back(item.second);
        }
    }
}

const lyd_node* ListIndex::find(std::string_view key) const {
    auto found =
        std::lower_bound(by_key_.begin(), by_key_.end(), key,
                         [](const auto& item, std::string_view k) { return item.first < k; });
    return found != by_key_.end() && found->first == key ? found->second : nullptr;
}

}  // namespace confd::detail
