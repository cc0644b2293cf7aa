/*
 * One configuration (running or candidate): a validated libyang data tree,
 * immutable once loaded, with the list indexes built for it on demand.
 */
#ifndef CONFD_SRC_DATA_TREE_H
#define CONFD_SRC_DATA_TREE_H

#include <libyang/libyang.h>

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

#include "confd_datastore.h"
#include "list_index.h"
#include "schema.h"

namespace confd::detail {

class Tree {
  public:
    // Throw confdstore::Error "<file>: <problem>".
    static std::shared_ptr<const Tree> load(std::shared_ptr<const Schema> schema,
                                            const std::string& file);
    static std::shared_ptr<const Tree> parse(std::shared_ptr<const Schema> schema,
                                             const std::string& text, confdstore::DataFormat format,
                                             const std::string& name);
    static std::shared_ptr<const Tree> empty(std::shared_ptr<const Schema> schema);

    ~Tree();
    Tree(const Tree&) = delete;
    Tree& operator=(const Tree&) = delete;

    const Schema& schema() const { return *schema_; }
    const std::shared_ptr<const Schema>& schema_ptr() const { return schema_; }

    // The first node among parent's children (the top-level nodes for nullptr).
    const lyd_node* first_child(const lyd_node* parent) const;

    // The entries of `list` under parent (nullptr: top level).
    const ListIndex& list(const lyd_node* parent, const lysc_node* list) const;

  private:
    Tree(std::shared_ptr<const Schema> schema, lyd_node* root);

    std::shared_ptr<const Schema> schema_;
    lyd_node* root_;
    mutable std::mutex mutex_;
    mutable std::map<std::pair<const lyd_node*, const lysc_node*>, std::unique_ptr<ListIndex>>
        lists_;
};

}  // namespace confd::detail

#endif
