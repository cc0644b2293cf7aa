#include "change_index.h"

#include "tree_diff.h"

namespace confd::detail {

ChangeIndex::ChangeIndex(std::shared_ptr<const Tree> running, std::shared_ptr<const Tree> candidate)
    : running_(std::move(running)), candidate_(std::move(candidate)) {
    diff_children(*running_, *candidate_, running_->first_child(nullptr),
                  candidate_->first_child(nullptr), nullptr, nullptr,
                  [this](const DiffEvent& event) {
                      switch (event.op) {
                          case DiffOp::created:
                              mark_subtree(event.node);
                              mark_ancestors(lyd_parent(event.node));
                              return DiffStep::skip;
                          case DiffOp::deleted:
                              mark_schema(event.node->schema);
                              mark_ancestors(event.candidate_parent);
                              return DiffStep::skip;
                          case DiffOp::modified:
                          case DiffOp::value_set:
                              mark_ancestors(event.node);
                              break;
                      }
                      return DiffStep::recurse;
                  });
}

const std::vector<const lyd_node*>& ChangeIndex::changed_instances(const lysc_node* node) const {
    static const std::vector<const lyd_node*> none;
    auto found = instances_.find(node);
    return found != instances_.end() ? found->second : none;
}

void ChangeIndex::mark(const lyd_node* node) {
    if (nodes_.insert(node).second) {
        instances_[node->schema].push_back(node);
    }
    mark_schema(node->schema);
}

void ChangeIndex::mark_schema(const lysc_node* node) {
    for (; node != nullptr && schemas_.insert(node).second; node = node->parent) {
    }
}

void ChangeIndex::mark_ancestors(const lyd_node* node) {
    for (; node != nullptr && nodes_.count(node) == 0; node = lyd_parent(node)) {
        mark(node);
    }
}

// The walk does not enter a created subtree, and no other difference lies
// below it, so its nodes are met here once and need no check against the
// nodes marked before.
void ChangeIndex::mark_subtree(const lyd_node* node) {
    instances_[node->schema].push_back(node);
    mark_schema(node->schema);
    for (const lyd_node* child = lyd_child(node); child != nullptr; child = child->next) {
        mark_subtree(child);
    }
}

}  // namespace confd::detail
