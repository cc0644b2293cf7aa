#include "data_tree.h"

#include <atomic>
#include <cstring>
#include <string_view>

#include "config_file.h"
#include "config_text.h"
#include "libyang_log.h"

namespace confd::detail {
namespace {

confdstore::DataFormat format_of(const std::string& file) {
    auto ends_with = [&](const char* suffix) {
        const size_t n = std::strlen(suffix);
        return file.size() >= n && file.compare(file.size() - n, n, suffix) == 0;
    };
    if (ends_with(".xml")) {
        return confdstore::DataFormat::xml;
    }
    if (ends_with(".json")) {
        return confdstore::DataFormat::json;
    }
    throw confdstore::Error(file + ": unknown data format (expected a .xml or .json file)");
}

// A failed parse or validation: libyang's message, or after an allocation
// failure only that, with the partial tree and the context left unfreed.
[[noreturn]] void throw_libyang_failure(const Schema& schema, LY_ERR result, lyd_node* partial,
                                        const std::string& name) {
    if (result == LY_EMEM) {
        schema.abandon();
        throw confdstore::Error(name + ": out of memory");
    }
    lyd_free_all(partial);
    throw confdstore::Error(name + ": " + take_libyang_error(schema.context()));
}

bool blank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == std::string::npos;
}

uint64_t next_serial() {
    static std::atomic<uint64_t> last{0};
    return ++last;
}

}  // namespace

Tree::Tree(std::shared_ptr<const Schema> schema, lyd_node* root)
    : schema_(std::move(schema)), serial_(next_serial()), root_(root), top_level_(root) {}

Tree::~Tree() {
    if (!schema_->abandoned()) {
        lyd_free_all(root_);
    }
}

std::shared_ptr<const Tree> Tree::load(std::shared_ptr<const Schema> schema,
                                       const std::string& file, size_t max_bytes) {
    const confdstore::DataFormat format = format_of(file);
    return parse(std::move(schema), read_config_file(file, max_bytes), format, file);
}

std::shared_ptr<const Tree> Tree::parse(std::shared_ptr<const Schema> schema,
                                        const std::string& text, confdstore::DataFormat format,
                                        const std::string& name) {
    const std::string_view body = checked_config_text(text, format, name);
    if (blank(body)) {
        return empty(std::move(schema));
    }
    const LYD_FORMAT ly_format = format == confdstore::DataFormat::xml ? LYD_XML : LYD_JSON;
    lyd_node* root = nullptr;
    const LY_ERR result = lyd_parse_data_mem(schema->context(), body.data(), ly_format,
                                             LYD_PARSE_STRICT, LYD_VALIDATE_NO_STATE, &root);
    if (result != LY_SUCCESS) {
        throw_libyang_failure(*schema, result, root, name);
    }
    if (root == nullptr) {
        return empty(std::move(schema));
    }
    return std::shared_ptr<const Tree>(new Tree(std::move(schema), lyd_first_sibling(root)));
}

std::shared_ptr<const Tree> Tree::empty(std::shared_ptr<const Schema> schema) {
    lyd_node* root = nullptr;
    // Validation adds the implicit nodes (non-presence containers) of the model.
    const LY_ERR result =
        lyd_validate_all(&root, schema->context(), LYD_VALIDATE_NO_STATE, nullptr);
    if (result != LY_SUCCESS) {
        throw_libyang_failure(*schema, result, root, "empty configuration");
    }
    return std::shared_ptr<const Tree>(
        new Tree(std::move(schema), root != nullptr ? lyd_first_sibling(root) : nullptr));
}

const lyd_node* Tree::first_child(const lyd_node* parent) const {
    return parent != nullptr ? lyd_child(parent) : root_;
}

const lyd_node* Tree::first_instance(const lyd_node* parent, const lysc_node* schema) const {
    if (parent == nullptr) {
        return top_level_.first_instance(schema);
    }
    // Most parents (list entries) have a few children: a look at each costs
    // less than a record kept for every parent.
    const lyd_node* child = lyd_child(parent);
    for (size_t looked_at = 0; child != nullptr && looked_at < kFewChildren;
         child = child->next, ++looked_at) {
        if (child->schema == schema) {
            return child;
        }
    }
    return child != nullptr ? recorded_first_instance(parent, schema) : nullptr;
}

const lyd_node* Tree::recorded_first_instance(const lyd_node* parent,
                                              const lysc_node* schema) const {
    std::lock_guard<std::mutex> lock(first_instances_mutex_);
    auto [known, added] = first_instances_.try_emplace(parent);
    FirstInstances& firsts = known->second;
    if (added) {
        for (const lyd_node* child = lyd_child(parent); child != nullptr; child = child->next) {
            if (firsts.empty() || firsts.back().first != child->schema) {
                firsts.emplace_back(child->schema, child);
            }
        }
    }
    for (const auto& [instance_schema, first] : firsts) {
        if (instance_schema == schema) {
            return first;
        }
    }
    return nullptr;
}

const lyd_node* Tree::counterpart(const lyd_node* sibling, const lyd_node* node) const {
    if (sibling == nullptr) {
        return nullptr;
    }
    if (lyd_parent(sibling) == nullptr) {
        return top_level_.counterpart(node);
    }
    lyd_node* match = nullptr;
    lyd_find_sibling_first(sibling, node, &match);
    return match;
}

const ListIndex& Tree::list(const lyd_node* parent, const lysc_node* list) const {
    std::lock_guard<std::mutex> lock(mutex_);
    auto& index = lists_[{parent, list}];
    if (!index) {
        index = std::make_unique<ListIndex>(*schema_, first_instance(parent, list), list);
    }
    return *index;
}

const LeafValueIndex& Tree::leaf_values(const lyd_node* parent, const lysc_node* list,
                                        const lysc_node* leaf) const {
    std::lock_guard<std::mutex> lock(mutex_);
    auto& index = leaf_values_[{{parent, list}, leaf}];
    if (!index) {
        index = std::make_unique<LeafValueIndex>(first_instance(parent, list), list, leaf);
    }
    return *index;
}

}  // namespace confd::detail
