/*
 * XPath expressions that select list entries by the value of one of their
 * leaves, evaluated with the tree's leaf value index (leaf_value_index.h)
 * instead of libyang's test of every sibling:
 *
 *   a/b/list[leaf='value']/c/d
 *
 * relative to a context node: names without a module prefix, all of the
 * context node's module; containers before the list; one predicate
 * comparing a string leaf of the list with a literal, without blanks;
 * containers and at most a last leaf after it. Each step after the list is
 * at most one node per entry, so the selected nodes come in the order of the
 * matching entries, which is document order. Every other expression is left
 * to libyang.
 */
#ifndef CONFD_SRC_XPATH_LOOKUP_H
#define CONFD_SRC_XPATH_LOOKUP_H

#include <libyang/libyang.h>

#include <string_view>

#include "data_tree.h"

namespace confd::detail {

// When expr has the form above: sets first to the first node it selects
// from context (a node of tree) in document order, nullptr for none, and
// returns true. Otherwise returns false and leaves first untouched.
bool select_first_by_value(const Tree& tree, const lyd_node* context, std::string_view expr,
                           const lyd_node*& first);

}  // namespace confd::detail

#endif
