/*
 * The entries of one list under one parent instance by the value of one of
 * their leaves, each value's entries in document order. Built once per
 * (parent, list, leaf) and kept with the (immutable) data tree, so that an
 * XPath predicate comparing that leaf with a literal costs a lookup instead
 * of a test of every sibling.
 */
#ifndef CONFD_SRC_LEAF_VALUE_INDEX_H
#define CONFD_SRC_LEAF_VALUE_INDEX_H

#include <libyang/libyang.h>

#include <string_view>
#include <unordered_map>
#include <vector>

namespace confd::detail {

class LeafValueIndex {
  public:
    // first: the list's first entry under its parent, or nullptr for none;
    // leaf: a leaf of the list. Entries without the leaf are left out.
    LeafValueIndex(const lyd_node* first, const lysc_node* list, const lysc_node* leaf);

    // The entries whose leaf's canonical value is value, in document order;
    // empty if none.
    const std::vector<const lyd_node*>& entries(std::string_view value) const;

  private:
    // The values are libyang's own strings, which live as long as the tree.
    std::unordered_map<std::string_view, std::vector<const lyd_node*>> by_value_;
};

}  // namespace confd::detail

#endif
