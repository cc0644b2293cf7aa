/*
 * Finding a schema node's instance among siblings by looking at each.
 * libyang's lookup by schema node (lyd_find_sibling_val without a value)
 * swaps the callback of the parent's hash table for the search: a write on
 * a read path, a data race between threads reading one tree and a copied
 * page in a forked process sharing the tree's pages.
 */
#ifndef CONFD_SRC_SIBLING_SCAN_H
#define CONFD_SRC_SIBLING_SCAN_H

#include <libyang/libyang.h>

namespace confd::detail {

// The first node from `first` on (among its next siblings) whose schema
// node is schema; nullptr if none.
inline const lyd_node* first_sibling_of(const lyd_node* first, const lysc_node* schema) {
    const lyd_node* node = first;
    while (node != nullptr && node->schema != schema) {
        node = node->next;
    }
    return node;
}

}  // namespace confd::detail

#endif
