/*
 * The entries of one list under one parent instance, in the order ConfD
 * delivers them, with a lookup by key values. Built once per list and kept
 * with the (immutable) data tree, so cursors and key lookups do not sort or
 * scan per call.
 */
#ifndef CONFD_SRC_LIST_INDEX_H
#define CONFD_SRC_LIST_INDEX_H

#include <libyang/libyang.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "schema.h"
#include "sibling_scan.h"

namespace confd::detail {

class ListIndex {
  public:
    // first: the list's first entry under its parent, or nullptr for none.
    ListIndex(const Schema& schema, const lyd_node* first, const lysc_node* list);

    // ordered-by system: key order (key_order.h); ordered-by user: data order.
    const std::vector<const lyd_node*>& entries() const { return entries_; }

    // The entry whose encoded keys (key_order.h) are key; nullptr if none.
    const lyd_node* find(std::string_view key) const;

  private:
    std::vector<std::pair<std::string, const lyd_node*>> by_key_;
    std::vector<const lyd_node*> entries_;
};

// Calls visit with each key leaf of a list entry, in key order (nullptr for
// a missing one), until visit returns false; false then. libyang keeps them
// first, in that order, so each is looked for only when it is not where it
// should be.
template <typename Visit>
bool for_each_key_leaf(const Schema& schema, const lyd_node* entry, Visit visit) {
    const lyd_node* expected = lyd_child(entry);
    for (const lysc_node* key_schema : schema.keys(entry->schema)) {
        const lyd_node* leaf = expected;
        if (leaf == nullptr || leaf->schema != key_schema) {
            leaf = first_sibling_of(lyd_child(entry), key_schema);
        }
        if (!visit(leaf)) {
            return false;
        }
        expected = leaf != nullptr ? leaf->next : nullptr;
    }
    return true;
}

// The encoded key values of a list entry; nullopt when a key does not convert.
std::optional<std::string> entry_key(const Schema& schema, const lyd_node* entry);

}  // namespace confd::detail

#endif
