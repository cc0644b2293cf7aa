/*
 * The top-level nodes of one data tree, indexed once when the tree is
 * loaded. libyang keeps a hash table only for the children of an inner
 * node; the top-level nodes have no parent to hold one, so without this
 * index every path's first step would scan them all, and a top-level list
 * puts one top-level node there per entry.
 */
#ifndef CONFD_SRC_TOP_LEVEL_INDEX_H
#define CONFD_SRC_TOP_LEVEL_INDEX_H

#include <libyang/libyang.h>

#include <cstdint>
#include <unordered_map>
#include <utility>
#include <vector>

namespace confd::detail {

class TopLevelIndex {
  public:
    // first: the first top-level node, or nullptr for an empty tree.
    explicit TopLevelIndex(const lyd_node* first);

    // The first top-level instance of schema; nullptr if none. The instances
    // of one schema node are adjacent, so the others follow it.
    const lyd_node* first_instance(const lysc_node* schema) const;

    // The top-level node that stands for node, a top-level node of another
    // tree of the same context, as libyang matches siblings: the same schema
    // node, and for list and leaf-list entries the same keys or value;
    // nullptr if none.
    const lyd_node* counterpart(const lyd_node* node) const;

  private:
    std::unordered_map<const lysc_node*, const lyd_node*> first_;
    // List and leaf-list entries by libyang's node hash (schema node and key
    // values), in data order within one hash.
    std::vector<std::pair<uint32_t, const lyd_node*>> entries_;
};

}  // namespace confd::detail

#endif
