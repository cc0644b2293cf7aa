#include "leaf_value_index.h"

namespace confd::detail {

LeafValueIndex::LeafValueIndex(const lyd_node* first, const lysc_node* list,
                               const lysc_node* leaf) {
    for (const lyd_node* entry = first; entry != nullptr && entry->schema == list;
         entry = entry->next) {
        lyd_node* value = nullptr;
        if (lyd_find_sibling_val(lyd_child(entry), leaf, nullptr, 0, &value) == LY_SUCCESS) {
            by_value_[lyd_get_value(value)].push_back(entry);
        }
    }
}

const std::vector<const lyd_node*>& LeafValueIndex::entries(std::string_view value) const {
    static const std::vector<const lyd_node*> none;
    const auto found = by_value_.find(value);
    return found != by_value_.end() ? found->second : none;
}

}  // namespace confd::detail
