/*
 * One configuration (running or candidate): a validated libyang data tree,
 * immutable once loaded, with an index of its top-level nodes built at load
 * and the list indexes built for it on demand.
 */
#ifndef CONFD_SRC_DATA_TREE_H
#define CONFD_SRC_DATA_TREE_H

#include <libyang/libyang.h>

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "confd_datastore.h"
#include "leaf_value_index.h"
#include "list_index.h"
#include "schema.h"
#include "top_level_index.h"

namespace confd::detail {

class Tree {
  public:
    // Throw confdstore::Error "<file>: <problem>". A file longer than
    // max_bytes is refused.
    static std::shared_ptr<const Tree> load(std::shared_ptr<const Schema> schema,
                                            const std::string& file, size_t max_bytes);
    static std::shared_ptr<const Tree> parse(std::shared_ptr<const Schema> schema,
                                             const std::string& text, confdstore::DataFormat format,
                                             const std::string& name);
    static std::shared_ptr<const Tree> empty(std::shared_ptr<const Schema> schema);

    ~Tree();
    Tree(const Tree&) = delete;
    Tree& operator=(const Tree&) = delete;

    const Schema& schema() const { return *schema_; }

    // A number no other tree of this process has had: what remembers
    // something about a tree goes by it, as a freed tree's address may be
    // taken by another.
    uint64_t serial() const { return serial_; }
    const std::shared_ptr<const Schema>& schema_ptr() const { return schema_; }

    // The first node among parent's children (the top-level nodes for nullptr).
    const lyd_node* first_child(const lyd_node* parent) const;

    // The first instance of schema among parent's children (the top level for
    // nullptr); nullptr if none. The instances of one schema node are
    // adjacent, so the others follow it.
    const lyd_node* first_instance(const lyd_node* parent, const lysc_node* schema) const;

    // The node among the siblings of `sibling` (a node of this tree; nullptr:
    // no siblings) that stands for node, a node of another tree of the same
    // schema: the same schema node, and for list and leaf-list entries the
    // same keys or value; nullptr if none.
    const lyd_node* counterpart(const lyd_node* sibling, const lyd_node* node) const;

    // The entries of `list` under parent (nullptr: top level).
    const ListIndex& list(const lyd_node* parent, const lysc_node* list) const;

    // The entries of `list` under parent (not the top level) by the value of
    // their leaf `leaf`.
    const LeafValueIndex& leaf_values(const lyd_node* parent, const lysc_node* list,
                                      const lysc_node* leaf) const;

  private:
    Tree(std::shared_ptr<const Schema> schema, lyd_node* root);
    const lyd_node* recorded_first_instance(const lyd_node* parent, const lysc_node* schema) const;

    std::shared_ptr<const Schema> schema_;
    uint64_t serial_;
    lyd_node* root_;
    TopLevelIndex top_level_;
    mutable std::mutex mutex_;
    using ListKey = std::pair<const lyd_node*, const lysc_node*>;
    struct ListKeyHash {
        size_t operator()(const ListKey& key) const {
            return std::hash<const void*>()(key.first) * 31 + std::hash<const void*>()(key.second);
        }
    };
    mutable std::unordered_map<ListKey, std::unique_ptr<ListIndex>, ListKeyHash> lists_;
    using LeafKey = std::pair<ListKey, const lysc_node*>;
    struct LeafKeyHash {
        size_t operator()(const LeafKey& key) const {
            return ListKeyHash()(key.first) * 31 + std::hash<const void*>()(key.second);
        }
    };
    mutable std::unordered_map<LeafKey, std::unique_ptr<LeafValueIndex>, LeafKeyHash> leaf_values_;
    // The first instance of each schema node among the children of a parent
    // with more than kFewChildren of them, taken in one pass over them when
    // the parent is first asked about; the children of other parents are
    // looked at in turn. libyang's own lookup by schema node writes to the
    // parent's hash table each time (a data race between readers, and a
    // copied page in a forked reader). A lock of its own: list() asks while
    // it holds mutex_.
    static constexpr size_t kFewChildren = 32;
    using FirstInstances = std::vector<std::pair<const lysc_node*, const lyd_node*>>;
    mutable std::mutex first_instances_mutex_;
    mutable std::unordered_map<const lyd_node*, FirstInstances> first_instances_;
};

}  // namespace confd::detail

#endif
