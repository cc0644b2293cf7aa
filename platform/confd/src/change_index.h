/*
 * What differs between running and candidate, for deciding which
 * validation points fire: every candidate node at or above a difference
 * (and every node of a created subtree), and every schema node at or above
 * one. Built in one walk (tree_diff.h), linear in the data.
 */
#ifndef CONFD_SRC_CHANGE_INDEX_H
#define CONFD_SRC_CHANGE_INDEX_H

#include <libyang/libyang.h>

#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "data_tree.h"

namespace confd::detail {

class ChangeIndex {
  public:
    ChangeIndex(std::shared_ptr<const Tree> running, std::shared_ptr<const Tree> candidate);

    // The schema node, or something below it, differs.
    bool schema_changed(const lysc_node* node) const { return schemas_.count(node) != 0; }

    // Candidate instances of node that were created or below which something
    // differs, in the order the walk met them.
    const std::vector<const lyd_node*>& changed_instances(const lysc_node* node) const;

    const std::shared_ptr<const Tree>& candidate() const { return candidate_; }

  private:
    void mark_ancestors(const lyd_node* node);
    void mark_subtree(const lyd_node* node);
    void mark(const lyd_node* node);
    void mark_schema(const lysc_node* node);

    std::shared_ptr<const Tree> running_;
    std::shared_ptr<const Tree> candidate_;
    std::unordered_set<const lyd_node*> nodes_;
    std::unordered_set<const lysc_node*> schemas_;
    std::unordered_map<const lysc_node*, std::vector<const lyd_node*>> instances_;
};

}  // namespace confd::detail

#endif
