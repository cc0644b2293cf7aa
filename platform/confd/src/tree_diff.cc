#include "tree_diff.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "data_tree.h"
#include "list_index.h"
#include "typed_value.h"

namespace confd::detail {
namespace {

// How a sibling loop goes on after one node.
enum class Flow { next, up, stop };

bool present(const lyd_node* node) {
    return node != nullptr && !(node->flags & LYD_DEFAULT);
}

bool walked(const lyd_node* node, const lysc_node* only) {
    return present(node) && !lysc_is_key(node->schema) && (only == nullptr || node->schema == only);
}

bool is_np_container(const lyd_node* node) {
    return node->schema->nodetype == LYS_CONTAINER && !(node->schema->flags & LYS_PRESENCE);
}

// The present node among the siblings of `sibling` in tree that stands for
// node (same schema node, same keys or value).
const lyd_node* counterpart(const Tree& tree, const lyd_node* sibling, const lyd_node* node) {
    const lyd_node* match = tree.counterpart(sibling, node);
    return present(match) ? match : nullptr;
}

// Canonical texts first; values written differently (an address in upper and
// lower case) are equal when their ConfD values are.
bool same_value(const lyd_node* a, const lyd_node* b) {
    if (std::strcmp(lyd_get_value(a), lyd_get_value(b)) == 0) {
        return true;
    }
    auto x = TypedValue::of_node(a);
    auto y = TypedValue::of_node(b);
    if (!x || !y) {
        return false;
    }
    const confd_value_t vx = x->view();
    const confd_value_t vy = y->view();
    return confd_val_eq(&vx, &vy) != 0;
}

// The walked siblings from first on (with `only`, its instances alone),
// entries of ordered-by system lists in key order (list_index.h),
// everything else as it stands.
std::vector<const lyd_node*> delivery_order(const Tree& tree, const lyd_node* first,
                                            const lysc_node* only) {
    const lyd_node* start =
        first != nullptr && only != nullptr ? tree.first_instance(lyd_parent(first), only) : first;
    std::vector<const lyd_node*> nodes;
    for (const lyd_node* node = start; node != nullptr && (only == nullptr || node->schema == only);
         node = node->next) {
        if (walked(node, only)) {
            nodes.push_back(node);
        }
    }
    for (auto run = nodes.begin(); run != nodes.end();) {
        const lysc_node* list = (*run)->schema;
        auto end =
            std::find_if(run, nodes.end(), [&](const lyd_node* n) { return n->schema != list; });
        if (list->nodetype == LYS_LIST && !(list->flags & LYS_ORDBY_USER) && end - run > 1) {
            // The run holds every entry of the list (they are adjacent); the
            // tree's index of the list has them in key order, and is there
            // for the reads that look the entries up later.
            const std::vector<const lyd_node*>& sorted =
                tree.list(lyd_parent(*run), list).entries();
            std::copy(sorted.begin(), sorted.end(), run);
        }
        run = end;
    }
    return nodes;
}

class Walker {
  public:
    Walker(const Tree& running, const Tree& candidate, const DiffVisitor& visit)
        : running_(running), candidate_(candidate), visit_(visit) {}

    // parent: the candidate node holding the siblings (nullptr: top level).
    Flow children(const lyd_node* running_first, const lyd_node* candidate_first,
                  const lyd_node* parent, const lysc_node* only);
    Flow pair(const lyd_node* running, const lyd_node* candidate, const lyd_node* parent);

  private:
    Flow created(const lyd_node* candidate);
    Flow deleted(const lyd_node* running, const lyd_node* parent);
    Flow changed(const lyd_node* running, const lyd_node* candidate);
    // Reports the event; on recurse, walks the children of the node.
    Flow report(const DiffEvent& event, const lyd_node* running_first, bool descend);

    bool subtree_differs(const lyd_node* running, const lyd_node* candidate) const;
    // Some child from from_first on has no counterpart among to_first's
    // siblings in `to`, or (with compare) one whose value or subtree differs.
    bool children_differ(const lyd_node* from_first, const Tree& to, const lyd_node* to_first,
                         bool compare) const;

    const Tree& running_;
    const Tree& candidate_;
    const DiffVisitor& visit_;
};

bool Walker::subtree_differs(const lyd_node* running, const lyd_node* candidate) const {
    return children_differ(lyd_child(candidate), running_, lyd_child(running), true) ||
           children_differ(lyd_child(running), candidate_, lyd_child(candidate), false);
}

bool Walker::children_differ(const lyd_node* from_first, const Tree& to, const lyd_node* to_first,
                             bool compare) const {
    for (const lyd_node* child = from_first; child != nullptr; child = child->next) {
        if (!walked(child, nullptr)) {
            continue;
        }
        const lyd_node* other = counterpart(to, to_first, child);
        if (other == nullptr) {
            return true;
        }
        if (!compare) {
            continue;
        }
        const bool term = (child->schema->nodetype & LYD_NODE_TERM) != 0;
        if (term ? !same_value(other, child) : subtree_differs(other, child)) {
            return true;
        }
    }
    return false;
}

Flow Walker::children(const lyd_node* running_first, const lyd_node* candidate_first,
                      const lyd_node* parent, const lysc_node* only) {
    for (const lyd_node* node : delivery_order(running_, running_first, only)) {
        if (counterpart(candidate_, candidate_first, node) != nullptr) {
            continue;
        }
        const Flow flow = deleted(node, parent);
        if (flow != Flow::next) {
            return flow == Flow::stop ? Flow::stop : Flow::next;
        }
    }
    for (const lyd_node* node : delivery_order(candidate_, candidate_first, only)) {
        const Flow flow = pair(counterpart(running_, running_first, node), node, parent);
        if (flow != Flow::next) {
            return flow == Flow::stop ? Flow::stop : Flow::next;
        }
    }
    return Flow::next;
}

Flow Walker::pair(const lyd_node* running, const lyd_node* candidate, const lyd_node* parent) {
    if (candidate == nullptr) {
        return running != nullptr ? deleted(running, parent) : Flow::next;
    }
    return running == nullptr ? created(candidate) : changed(running, candidate);
}

Flow Walker::created(const lyd_node* candidate) {
    if (candidate->schema->nodetype & LYD_NODE_TERM) {
        return report({DiffOp::value_set, candidate, nullptr}, nullptr, false);
    }
    if (is_np_container(candidate)) {
        return children(nullptr, lyd_child(candidate), candidate, nullptr);
    }
    return report({DiffOp::created, candidate, nullptr}, nullptr, true);
}

Flow Walker::deleted(const lyd_node* running, const lyd_node* parent) {
    if (!(running->schema->nodetype & LYD_NODE_TERM) && is_np_container(running)) {
        // A non-presence container exists as long as its parent does, as in
        // ConfD: its children are deleted from the candidate's (implicit)
        // instance, so that instance counts as changed.
        const lyd_node* implicit =
            parent != nullptr ? candidate_.counterpart(lyd_child(parent), running) : nullptr;
        return children(lyd_child(running), nullptr, implicit != nullptr ? implicit : parent,
                        nullptr);
    }
    return report({DiffOp::deleted, running, parent}, nullptr, false);
}

Flow Walker::changed(const lyd_node* running, const lyd_node* candidate) {
    if (candidate->schema->nodetype & LYD_NODE_TERM) {
        return same_value(running, candidate)
                   ? Flow::next
                   : report({DiffOp::value_set, candidate, nullptr}, nullptr, false);
    }
    if (candidate->schema->nodetype != LYS_LIST) {
        return children(lyd_child(running), lyd_child(candidate), candidate, nullptr);
    }
    if (!subtree_differs(running, candidate)) {
        return Flow::next;
    }
    return report({DiffOp::modified, candidate, nullptr}, lyd_child(running), true);
}

Flow Walker::report(const DiffEvent& event, const lyd_node* running_first, bool descend) {
    switch (visit_(event)) {
        case DiffStep::stop:
            return Flow::stop;
        case DiffStep::up:
            return Flow::up;
        case DiffStep::skip:
            return Flow::next;
        case DiffStep::recurse:
            break;
    }
    if (!descend) {
        return Flow::next;
    }
    return children(running_first, lyd_child(event.node), event.node, nullptr) == Flow::stop
               ? Flow::stop
               : Flow::next;
}

}  // namespace

bool diff_children(const Tree& running, const Tree& candidate, const lyd_node* running_first,
                   const lyd_node* candidate_first, const lyd_node* candidate_parent,
                   const lysc_node* only, const DiffVisitor& visit) {
    Walker walker(running, candidate, visit);
    return walker.children(running_first, candidate_first, candidate_parent, only) != Flow::stop;
}

bool diff_node(const Tree& running_tree, const Tree& candidate_tree, const lyd_node* running,
               const lyd_node* candidate, const DiffVisitor& visit) {
    Walker walker(running_tree, candidate_tree, visit);
    const lyd_node* parent = candidate != nullptr ? lyd_parent(candidate) : nullptr;
    return walker.pair(present(running) ? running : nullptr,
                       present(candidate) ? candidate : nullptr, parent) != Flow::stop;
}

}  // namespace confd::detail
