/*
 * The data model: a libyang context with every module of a directory,
 * compiled once, and what the ConfD layer needs of it, computed at load:
 * tag hashes, data children of each node, list keys, the ConfD type of each
 * leaf and the validation points. Immutable after loading, so it is shared
 * freely between threads.
 */
#ifndef CONFD_SRC_SCHEMA_H
#define CONFD_SRC_SCHEMA_H

#include <libyang/libyang.h>

#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "confd_datastore.h"
#include "confd_lib.h"

namespace confd::detail {

// Containers, lists, leaves and leaf-lists: the nodes that data instances have.
bool is_data_node(const lysc_node* node);

class Schema {
  public:
    // Throws confdstore::Error naming the directory or file.
    static std::shared_ptr<const Schema> load(const std::string& directory);

    ~Schema();
    Schema(const Schema&) = delete;
    Schema& operator=(const Schema&) = delete;

    const ly_ctx* context() const { return ctx_; }

    // After libyang ran out of memory its dictionary may be inconsistent
    // (libyang 2.1 crashes destroying such a context), so the context and
    // the trees made with it are then left to the process's end, not freed.
    void abandon() const { abandoned_ = true; }
    bool abandoned() const { return abandoned_; }
    const std::vector<const lys_module*>& modules() const { return modules_; }
    // Every data node, in schema order.
    const std::vector<const lysc_node*>& nodes() const { return nodes_; }

    uint32_t tag(const lysc_node* node) const;
    uint32_t ns(const lys_module* module) const;
    const std::map<std::string, uint32_t>& tags() const { return tags_; }

    // Data children (through choices and cases); nullptr: top-level nodes.
    const std::vector<const lysc_node*>& children(const lysc_node* parent) const;
    // The child called name whose module has the name or prefix `prefix`
    // (any module when prefix is empty); nullptr when there is none, or
    // when there are several (then `ambiguous` is set).
    const lysc_node* find_child(const lysc_node* parent, std::string_view prefix,
                                std::string_view name, bool& ambiguous) const;
    const lysc_node* find_child(const lysc_node* parent, const xml_tag& tag) const;

    const std::vector<const lysc_node*>& keys(const lysc_node* list) const;
    confd_vtype value_type(const lysc_node* leaf) const;

    // "/config/interface/l3": the data path of a schema node without prefixes.
    std::string path(const lysc_node* node) const;

    const std::vector<confdstore::ValidationPoint>& validation_points() const { return points_; }

  private:
    Schema() = default;
    void index(const lysc_node* parent, const lysc_node* node);
    void check_value_types() const;
    void index_tags();

    struct NodeInfo {
        std::vector<const lysc_node*> children;
        // The children by name, each name's in the order of children: paths
        // name a child on every read.
        std::unordered_map<std::string_view, std::vector<const lysc_node*>> children_by_name;
        std::vector<const lysc_node*> keys;
        confd_vtype value_type = C_NOEXISTS;
        uint32_t tag = 0;
    };

    ly_ctx* ctx_ = nullptr;
    mutable std::atomic<bool> abandoned_{false};
    std::vector<const lys_module*> modules_;
    std::vector<const lysc_node*> nodes_;  // every data node, in schema order
    std::unordered_map<const lysc_node*, NodeInfo> info_;
    std::map<std::string, uint32_t> tags_;
    std::unordered_map<const lys_module*, uint32_t> module_ns_;  // namespace hashes
    std::vector<confdstore::ValidationPoint> points_;
};

}  // namespace confd::detail

#endif
