#include "keypath_build.h"

#include <algorithm>
#include <utility>

#include "list_index.h"
#include "locate.h"
#include "path_syntax.h"
#include "schema_path.h"

namespace confd::detail {
namespace {

// Levels from the root; a level is a tag or the keys of a list entry.
using Levels = std::vector<std::vector<TypedValue>>;

void add_tag(const Schema& schema, const lysc_node* node, Levels& levels) {
    levels.push_back({TypedValue::tag(schema.tag(node), schema.ns(node->module))});
}

std::shared_ptr<const KeypathData> build(Levels levels, const std::string& what) {
    if (levels.size() >= MAXDEPTH) {
        throw confdstore::Error(what + ": too deep for a keypath");
    }
    auto data = std::make_shared<KeypathData>();
    size_t count = 0;
    for (const auto& level : levels) {
        count += level.size();
    }
    data->values.reserve(count);
    data->hkp.len = static_cast<int>(levels.size());
    for (size_t i = 0; i < levels.size(); ++i) {
        confd_value_t* slot = data->hkp.v[levels.size() - 1 - i];
        size_t k = 0;
        for (TypedValue& value : levels[i]) {
            data->values.push_back(std::move(value));
            slot[k++] = data->values.back().view();
        }
        if (k < MAXKEYLEN) {
            slot[k].type = C_NOEXISTS;
        }
    }
    return data;
}

}  // namespace

std::shared_ptr<const KeypathData> keypath_of_node(const Schema& schema, const lyd_node* node) {
    auto data = std::make_shared<KeypathData>();
    write_keypath_of_node(schema, node, *data);
    return data;
}

void write_keypath_of_node(const Schema& schema, const lyd_node* node, KeypathData& data) {
    // Innermost first, as the keypath stores them: a tag per node, and after
    // it (outwards) the keys of a list entry.
    size_t depth = 0;
    size_t count = 0;
    for (const lyd_node* n = node; n != nullptr; n = lyd_parent(n)) {
        const size_t keys = schema.keys(n->schema).size();
        depth += keys != 0 ? 2 : 1;
        count += 1 + keys;
    }
    if (depth >= MAXDEPTH) {
        throw confdstore::Error(schema.path(node->schema) + ": too deep for a keypath");
    }
    // Reserved whole before the first value, so the views into the values
    // stay valid.
    data.values.clear();
    data.values.reserve(count);
    std::fill_n(&data.hkp.v[0][0], data.levels_written * MAXKEYLEN, confd_value_t{});
    data.levels_written = static_cast<int>(depth);
    data.hkp.len = static_cast<int>(depth);
    int level = 0;
    const auto end_level = [&](size_t k) {
        if (k < MAXKEYLEN) {
            data.hkp.v[level][k].type = C_NOEXISTS;
        }
        ++level;
    };
    for (const lyd_node* n = node; n != nullptr; n = lyd_parent(n)) {
        if (!schema.keys(n->schema).empty()) {
            size_t k = 0;
            for_each_key_leaf(schema, n, [&](const lyd_node* leaf) {
                data.values.push_back(TypedValue::of_node(leaf).value_or(TypedValue()));
                data.hkp.v[level][k++] = data.values.back().view();
                return true;
            });
            end_level(k);
        }
        data.values.push_back(TypedValue::tag(schema.tag(n->schema), schema.ns(n->schema->module)));
        data.hkp.v[level][0] = data.values.back().view();
        end_level(1);
    }
}

std::shared_ptr<const KeypathData> keypath_of_schema(const Schema& schema, const lysc_node* node) {
    std::vector<const lysc_node*> chain;
    for (const lysc_node* n = node; n != nullptr; n = n->parent) {
        if (is_data_node(n)) {
            chain.push_back(n);
        }
    }
    Levels levels;
    for (auto it = chain.rbegin(); it != chain.rend(); ++it) {
        add_tag(schema, *it, levels);
    }
    return build(std::move(levels), schema.path(node));
}

std::shared_ptr<const KeypathData> keypath_of_path(const Schema& schema, const std::string& path) {
    std::vector<PathStep> steps;
    std::vector<const lysc_node*> chain;
    std::string error;
    if (!parse_path_text(path, steps, error) || !resolve_schema(schema, steps, chain, error)) {
        throw confdstore::Error(path + ": " + error);
    }
    Levels levels;
    for (size_t i = 0; i < steps.size(); ++i) {
        add_tag(schema, chain[i], levels);
        if (!steps[i].keyed) {
            continue;
        }
        std::vector<TypedValue> keys;
        const auto& key_schemas = schema.keys(chain[i]);
        for (size_t k = 0; k < key_schemas.size(); ++k) {
            auto value = key_value(schema, key_schemas[k], steps[i].keys[k]);
            if (!value) {
                throw confdstore::Error(path + ": bad value '" + steps[i].keys[k].text +
                                        "' for key '" + key_schemas[k]->name + "'");
            }
            keys.push_back(std::move(*value));
        }
        levels.push_back(std::move(keys));
    }
    return build(std::move(levels), path);
}

}  // namespace confd::detail
