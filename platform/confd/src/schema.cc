#include "schema.h"

#include <dirent.h>

#include <algorithm>
#include <cstring>

#include "libyang_log.h"
#include "schema_extensions.h"
#include "tag_hash.h"
#include "tag_registry.h"
#include "type_map.h"
#include "validation_points.h"

namespace confd::detail {
namespace {

std::vector<std::string> yang_files(const std::string& directory) {
    DIR* dir = opendir(directory.c_str());
    if (dir == nullptr) {
        throw confdstore::Error(directory + ": cannot read the directory: " + std::strerror(errno));
    }
    std::vector<std::string> files;
    while (const dirent* entry = readdir(dir)) {
        const std::string name = entry->d_name;
        if (name.size() > 5 && name.compare(name.size() - 5, 5, ".yang") == 0) {
            files.push_back(directory + "/" + name);
        }
    }
    closedir(dir);
    std::sort(files.begin(), files.end());
    if (files.empty()) {
        throw confdstore::Error(directory + ": no YANG modules (*.yang) in the directory");
    }
    return files;
}

// The data children of node, looking through choices and cases.
void collect_children(const lysc_node* first, std::vector<const lysc_node*>& out) {
    for (const lysc_node* child = first; child != nullptr; child = child->next) {
        if (is_data_node(child)) {
            out.push_back(child);
        } else if (child->nodetype & (LYS_CHOICE | LYS_CASE)) {
            collect_children(lysc_node_child(child), out);
        }
    }
}

bool matches_prefix(const lys_module* module, std::string_view prefix) {
    return prefix.empty() || prefix == module->name || prefix == module->prefix;
}

}  // namespace

bool is_data_node(const lysc_node* node) {
    return (node->nodetype & (LYS_CONTAINER | LYS_LIST | LYS_LEAF | LYS_LEAFLIST)) != 0;
}

std::shared_ptr<const Schema> Schema::load(const std::string& directory) {
    store_libyang_messages();
    const std::vector<std::string> files = yang_files(directory);
    std::shared_ptr<Schema> schema(new Schema());
    const uint16_t options =
        LY_CTX_SET_PRIV_PARSED | LY_CTX_NO_YANGLIBRARY | LY_CTX_DISABLE_SEARCHDIR_CWD;
    if (ly_ctx_new(directory.c_str(), options, &schema->ctx_) != LY_SUCCESS) {
        throw confdstore::Error(directory + ": cannot create a YANG context");
    }
    for (const std::string& file : files) {
        lys_module* module = nullptr;
        if (lys_parse_path(schema->ctx_, file.c_str(), LYS_IN_YANG, &module) != LY_SUCCESS) {
            throw confdstore::Error(file + ": " + take_libyang_error(schema->ctx_));
        }
        schema->modules_.push_back(module);
    }
    for (const lys_module* module : schema->modules_) {
        std::vector<const lysc_node*> top;
        collect_children(module->compiled ? module->compiled->data : nullptr, top);
        for (const lysc_node* node : top) {
            schema->index(nullptr, node);
        }
    }
    try {
        schema->tags_ = tag_table(schema->nodes_);
        schema->index_tags();
        schema->check_value_types();
        schema->points_ = read_validation_points(*schema, schema->nodes_);
    } catch (const confdstore::Error& error) {
        throw confdstore::Error(directory + ": " + error.what());
    }
    publish_tags(schema->tags_);
    return schema;
}

Schema::~Schema() {
    if (!abandoned_) {
        ly_ctx_destroy(ctx_);
    }
}

void Schema::index(const lysc_node* parent, const lysc_node* node) {
    nodes_.push_back(node);
    NodeInfo& parent_info = info_[parent];
    parent_info.children.push_back(node);
    parent_info.children_by_name[node->name].push_back(node);
    NodeInfo& info = info_[node];
    if (node->nodetype & LYD_NODE_TERM) {
        info.value_type = confd_type_of(reinterpret_cast<const lysc_node_leaf*>(node)->type);
    }
    std::vector<const lysc_node*> children;
    collect_children(lysc_node_child(node), children);
    for (const lysc_node* child : children) {
        if (lysc_is_key(child)) {
            info.keys.push_back(child);
        }
        index(node, child);
    }
}

void Schema::check_value_types() const {
    for (const lysc_node* node : nodes_) {
        if (!(node->nodetype & LYD_NODE_TERM)) {
            continue;
        }
        const auto* type = value_type_of(reinterpret_cast<const lysc_node_leaf*>(node)->type);
        const char* declared = type_extension_argument(type, "value-type");
        if (declared != nullptr && value_type(node) == C_NOEXISTS) {
            throw confdstore::Error("unknown value-type '" + std::string(declared) + "' of " +
                                    path(node));
        }
    }
}

void Schema::index_tags() {
    for (const lysc_node* node : nodes_) {
        info_[node].tag = tags_.at(node->name);
        module_ns_.emplace(node->module, name_hash(node->module->ns));
    }
}

uint32_t Schema::tag(const lysc_node* node) const {
    auto indexed = info_.find(node);
    if (indexed != info_.end()) {
        return indexed->second.tag;
    }
    auto found = tags_.find(node->name);
    return found != tags_.end() ? found->second : 0;
}

uint32_t Schema::ns(const lys_module* module) const {
    auto found = module_ns_.find(module);
    return found != module_ns_.end() ? found->second : name_hash(module->ns);
}

const std::vector<const lysc_node*>& Schema::children(const lysc_node* parent) const {
    static const std::vector<const lysc_node*> none;
    auto found = info_.find(parent);
    return found != info_.end() ? found->second.children : none;
}

const lysc_node* Schema::find_child(const lysc_node* parent, std::string_view prefix,
                                    std::string_view name, bool& ambiguous) const {
    const lysc_node* found = nullptr;
    ambiguous = false;
    const auto parent_info = info_.find(parent);
    if (parent_info == info_.end()) {
        return nullptr;
    }
    const auto& by_name = parent_info->second.children_by_name;
    const auto named = by_name.find(name);
    if (named == by_name.end()) {
        return nullptr;
    }
    for (const lysc_node* child : named->second) {
        if (matches_prefix(child->module, prefix)) {
            ambiguous = found != nullptr;
            if (ambiguous) {
                return nullptr;
            }
            found = child;
        }
    }
    return found;
}

const lysc_node* Schema::find_child(const lysc_node* parent, const xml_tag& tag) const {
    for (const lysc_node* child : children(parent)) {
        if (this->tag(child) == tag.tag && (tag.ns == 0 || ns(child->module) == tag.ns)) {
            return child;
        }
    }
    return nullptr;
}

const std::vector<const lysc_node*>& Schema::keys(const lysc_node* list) const {
    static const std::vector<const lysc_node*> none;
    auto found = info_.find(list);
    return found != info_.end() ? found->second.keys : none;
}

confd_vtype Schema::value_type(const lysc_node* leaf) const {
    auto found = info_.find(leaf);
    return found != info_.end() ? found->second.value_type : C_NOEXISTS;
}

std::string Schema::path(const lysc_node* node) const {
    std::string text;
    for (; node != nullptr; node = node->parent) {
        if (is_data_node(node)) {
            text = "/" + std::string(node->name) + text;
        }
    }
    return text;
}

}  // namespace confd::detail
