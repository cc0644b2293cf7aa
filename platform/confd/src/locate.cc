#include "locate.h"

#include <optional>

#include "call_trace.h"
#include "error_state.h"
#include "key_order.h"
#include "schema_path.h"
#include "typed_value.h"
#include "value_text.h"

namespace confd::detail {
namespace {

int encode_keys(const Schema& schema, const PathStep& step, const lysc_node* list,
                std::string& encoded) {
    const auto& keys = schema.keys(list);
    for (size_t i = 0; i < keys.size(); ++i) {
        auto value = key_value(schema, keys[i], step.keys[i]);
        if (!value) {
            return failf(CONFD_ERR_BADPATH, "bad value '%s' for key '%s' of '%s'",
                         step.keys[i].text.c_str(), keys[i]->name, list->name);
        }
        append_order_key(encoded, value->view());
    }
    return CONFD_OK;
}

}  // namespace

std::optional<TypedValue> key_value(const Schema& schema, const lysc_node* leaf,
                                    const KeyToken& token) {
    const confd_vtype type = schema.value_type(leaf);
    if (token.value != nullptr && token.value->type == type) {
        return TypedValue::copy_of(*token.value);
    }
    const auto* yang_type = reinterpret_cast<const lysc_node_leaf*>(leaf)->type;
    return TypedValue::parse(type, yang_type, token.text);
}

int parse_request(const char* fmt, va_list args, PathRequest& request) {
    std::string error;
    if (!format_path(fmt, args, request.formatted, error) ||
        !parse_path(request.formatted.path, request.formatted.values, request.steps, error)) {
        return fail(CONFD_ERR_BADPATH, "bad path: " + error);
    }
    trace_path(request.steps);
    return CONFD_OK;
}

void trace_path(const std::vector<PathStep>& steps) {
    if (CallTrace* call = CallTrace::current()) {
        call->set_path(normalized_path(steps));
    }
}

int locate(const Tree& tree, const std::vector<PathStep>& steps, Location& where, size_t known) {
    where.chain.resize(known);
    where.instances.resize(steps.size());
    where.parent = nullptr;
    where.parent_exists = true;
    where.whole_list = false;
    std::string error;
    if (!resolve_schema(tree.schema(), steps, where.chain, error)) {
        return fail(CONFD_ERR_BADPATH, error);
    }
    const lyd_node* current = nullptr;
    bool exists = true;
    // The encoded keys of a step; the thread's buffer, grown once.
    thread_local std::string key;
    for (size_t i = 0; i < steps.size(); ++i) {
        const lysc_node* node = where.chain[i];
        const bool last = i + 1 == steps.size();
        const bool keyed_list = node->nodetype == LYS_LIST && steps[i].keyed;
        key.clear();
        if (i >= known && keyed_list &&
            encode_keys(tree.schema(), steps[i], node, key) != CONFD_OK) {
            return CONFD_ERR;
        }
        where.whole_list = node->nodetype == LYS_LIST && !keyed_list;
        const lyd_node* known_instance = i < known ? where.instances[i] : nullptr;
        where.instances[i] = nullptr;
        if (!exists) {
            continue;
        }
        if (last) {
            where.parent = current;
        }
        if (where.whole_list) {
            break;
        }
        const lyd_node* found = i < known    ? known_instance
                                : keyed_list ? tree.list(current, node).find(key)
                                             : tree.first_instance(current, node);
        if (found == nullptr) {
            exists = false;
            where.parent_exists = last;
            continue;
        }
        where.instances[i] = found;
        current = found;
    }
    where.node = exists && !where.whole_list ? current : nullptr;
    return CONFD_OK;
}

}  // namespace confd::detail
