/*
 * The differences between two data trees of one schema (running and
 * candidate), found in one walk over both: siblings are matched through
 * libyang's hash lookups, so the walk is linear in the data.
 *
 * Order: under each parent, the running children that are gone come first,
 * then the candidate children; siblings in schema order, entries of
 * ordered-by system lists in key order (list_index.h), of ordered-by user
 * lists as written. Implicit default nodes count as absent.
 *
 * What is reported, as ConfD's diff iteration does:
 * - created: a list entry or presence container (its leaves, if the walk
 *   descends, as value_set);
 * - deleted: a list entry, presence container or leaf;
 * - modified: a list entry below which something differs;
 * - value_set: a leaf that was set or whose value changed.
 * Non-presence containers are never reported themselves; the walk looks
 * into them.
 */
#ifndef CONFD_SRC_TREE_DIFF_H
#define CONFD_SRC_TREE_DIFF_H

#include <libyang/libyang.h>

#include <functional>

namespace confd::detail {

class Tree;

enum class DiffOp { created, deleted, modified, value_set };

// What the walk does after an event: look below the node, skip what is
// below it, skip the node's remaining siblings too, or end.
enum class DiffStep { recurse, skip, up, stop };

struct DiffEvent {
    DiffOp op;
    const lyd_node* node;  // the candidate node; the running node for deleted
    // For deleted: the candidate node it was under (nullptr at the top level).
    const lyd_node* candidate_parent;
};

using DiffVisitor = std::function<DiffStep(const DiffEvent&)>;

// Compares two sets of siblings, given by their first nodes in the running
// and the candidate tree, whose parent in the candidate is candidate_parent
// (nullptr: the top level). `only` restricts the walk to instances of that
// schema node. Returns false when the visitor stopped the walk.
bool diff_children(const Tree& running, const Tree& candidate, const lyd_node* running_first,
                   const lyd_node* candidate_first, const lyd_node* candidate_parent,
                   const lysc_node* only, const DiffVisitor& visit);

// Compares one node of the running tree with its counterpart in the
// candidate tree (either may be nullptr).
bool diff_node(const Tree& running_tree, const Tree& candidate_tree, const lyd_node* running,
               const lyd_node* candidate, const DiffVisitor& visit);

}  // namespace confd::detail

#endif
