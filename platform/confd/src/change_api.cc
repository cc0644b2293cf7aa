/* confdstore::Keypath, Value, Instance, ChangeSet and the point queries of Datastore. */
#include "change_index.h"
#include "confd_datastore.h"
#include "keypath_build.h"
#include "keypath_text.h"
#include "store.h"
#include "value_text.h"

namespace confdstore {
namespace {

using confd::detail::Tree;

const lysc_node* schema_node(const ValidationPoint& point) {
    if (point.node == nullptr) {
        throw Error("validation point " + point.name + " has no schema node");
    }
    return static_cast<const lysc_node*>(point.node);
}

const Tree& tree_of(const std::shared_ptr<const void>& tree) {
    return *static_cast<const Tree*>(tree.get());
}

// The instances of step under parent, lists in the order the change walk
// delivers them (keys for ordered-by system), anything else as it stands.
void append_instances(std::vector<const lyd_node*>& instances, const Tree& tree,
                      const lyd_node* parent, const lysc_node* step) {
    if (step->nodetype == LYS_LIST) {
        const std::vector<const lyd_node*>& entries = tree.list(parent, step).entries();
        instances.insert(instances.end(), entries.begin(), entries.end());
        return;
    }
    for (const lyd_node* n = tree.first_instance(parent, step); n != nullptr && n->schema == step;
         n = n->next) {
        instances.push_back(n);
    }
}

// The candidate instances of node: the instances of its parent's instances.
std::vector<const lyd_node*> all_instances(const Tree& tree, const lysc_node* node) {
    std::vector<const lysc_node*> chain;
    for (const lysc_node* n = node; n != nullptr; n = n->parent) {
        if (confd::detail::is_data_node(n)) {
            chain.insert(chain.begin(), n);
        }
    }
    std::vector<const lyd_node*> level{nullptr};
    for (const lysc_node* step : chain) {
        std::vector<const lyd_node*> next;
        for (const lyd_node* parent : level) {
            append_instances(next, tree, parent, step);
        }
        level = std::move(next);
    }
    return level;
}

}  // namespace

Keypath::Keypath(std::shared_ptr<const confd::detail::KeypathData> data) : data_(std::move(data)) {}

const confd_hkeypath_t& Keypath::get() const {
    return data_->hkp;
}

std::string Keypath::text() const {
    return confd::detail::keypath_text(data_->hkp, data_->hkp.len);
}

Value::Value(std::shared_ptr<const confd::detail::TypedValue> value) : value_(std::move(value)) {}

confd_value_t Value::get() const {
    return value_->view();
}

Instance::Instance(std::shared_ptr<const void> tree, const void* node)
    : tree_(std::move(tree)), node_(node) {}

Keypath Instance::keypath() const {
    const auto* node = static_cast<const lyd_node*>(node_);
    return Keypath(confd::detail::keypath_of_node(tree_of(tree_).schema(), node));
}

Value Instance::new_value() const {
    const auto* node = static_cast<const lyd_node*>(node_);
    const confd::detail::Schema& schema = tree_of(tree_).schema();
    auto leaf = confd::detail::TypedValue::of_node(node);
    return Value(std::make_shared<const confd::detail::TypedValue>(
        leaf ? std::move(*leaf)
             : confd::detail::TypedValue::tag(schema.tag(node->schema),
                                              schema.ns(node->schema->module))));
}

ChangeSet::ChangeSet(std::shared_ptr<const confd::detail::ChangeIndex> index)
    : index_(std::move(index)) {}

bool ChangeSet::fires(const ValidationPoint& point) const {
    if (index_->schema_changed(schema_node(point))) {
        return true;
    }
    for (const void* dependency : point.dependency_nodes) {
        if (index_->schema_changed(static_cast<const lysc_node*>(dependency))) {
            return true;
        }
    }
    return false;
}

std::vector<Instance> ChangeSet::changed_instances(const ValidationPoint& point) const {
    std::vector<Instance> instances;
    for (const lyd_node* node : index_->changed_instances(schema_node(point))) {
        instances.push_back(Instance(index_->candidate(), node));
    }
    return instances;
}

ChangeSet Datastore::changes() const {
    return ChangeSet(
        std::make_shared<const confd::detail::ChangeIndex>(impl_->running(), impl_->candidate()));
}

std::vector<Instance> Datastore::instances(const ValidationPoint& point) const {
    std::shared_ptr<const Tree> tree = impl_->candidate();
    std::vector<Instance> instances;
    for (const lyd_node* node : all_instances(*tree, schema_node(point))) {
        instances.push_back(Instance(tree, node));
    }
    return instances;
}

Keypath Datastore::schema_keypath(const ValidationPoint& point) const {
    return Keypath(confd::detail::keypath_of_schema(*impl_->schema(), schema_node(point)));
}

Value Datastore::schema_value(const ValidationPoint& point) const {
    const lysc_node* node = schema_node(point);
    const confd::detail::Schema& schema = *impl_->schema();
    return Value(std::make_shared<const confd::detail::TypedValue>(
        confd::detail::TypedValue::tag(schema.tag(node), schema.ns(node->module))));
}

Keypath Datastore::keypath(const std::string& path) const {
    return Keypath(confd::detail::keypath_of_path(*impl_->schema(), path));
}

}  // namespace confdstore
