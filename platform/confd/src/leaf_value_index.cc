#include "leaf_value_index.h"

#include "sibling_scan.h"

namespace confd::detail {

LeafValueIndex::LeafValueIndex(const lyd_node* first, const lysc_node* list,
                               const lysc_node* leaf) {
    for (const lyd_node* entry = first; entry != nullptr && entry->schema == list;
         entry = entry->next) {
        const lyd_node* value = first_sibling_of(lyd_child(entry), leaf);
        if (value != nullptr) {
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
