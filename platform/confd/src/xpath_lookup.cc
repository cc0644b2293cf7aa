#include "xpath_lookup.h"

#include <optional>
#include <vector>

namespace confd::detail {
namespace {

// The expression's parts as written.
struct ValueSelection {
    std::vector<std::string_view> before;
    std::string_view list;
    std::string_view leaf;
    std::string_view value;
    std::vector<std::string_view> after;
};

bool name_start(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

bool name_char(char c) {
    return name_start(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
}

// The name starting at pos, pos moved past it; empty when none starts there.
std::string_view take_name(std::string_view text, size_t& pos) {
    if (pos >= text.size() || !name_start(text[pos])) {
        return {};
    }
    const size_t start = pos;
    while (pos < text.size() && name_char(text[pos])) {
        ++pos;
    }
    return text.substr(start, pos - start);
}

// [leaf='value'] or [leaf="value"] at pos, pos moved past it.
bool take_predicate(std::string_view text, size_t& pos, ValueSelection& selection) {
    ++pos;
    selection.leaf = take_name(text, pos);
    if (selection.leaf.empty() || pos + 1 >= text.size() || text[pos] != '=') {
        return false;
    }
    const char quote = text[++pos];
    const size_t end = text.find(quote, pos + 1);
    if ((quote != '\'' && quote != '"') || end == std::string_view::npos ||
        end + 1 >= text.size() || text[end + 1] != ']') {
        return false;
    }
    selection.value = text.substr(pos + 1, end - pos - 1);
    pos = end + 2;
    return true;
}

std::optional<ValueSelection> parse_value_selection(std::string_view expr) {
    ValueSelection selection;
    size_t pos = 0;
    for (;;) {
        const std::string_view name = take_name(expr, pos);
        if (name.empty()) {
            return std::nullopt;
        }
        if (pos < expr.size() && expr[pos] == '[') {
            if (!selection.list.empty() || !take_predicate(expr, pos, selection)) {
                return std::nullopt;
            }
            selection.list = name;
        } else {
            (selection.list.empty() ? selection.before : selection.after).push_back(name);
        }
        if (pos == expr.size()) {
            break;
        }
        if (expr[pos++] != '/') {
            return std::nullopt;
        }
    }
    if (selection.list.empty()) {
        return std::nullopt;
    }
    return selection;
}

// The schema nodes of the expression's steps, each the child of the one
// before it (the first of the context's schema node).
struct ResolvedSelection {
    std::vector<const lysc_node*> before;
    const lysc_node* list = nullptr;
    const lysc_node* leaf = nullptr;
    std::vector<const lysc_node*> after;
};

bool resolve_steps(const lys_module* module, const lysc_node*& parent,
                   const std::vector<std::string_view>& names, uint16_t nodetypes,
                   std::vector<const lysc_node*>& steps) {
    for (const std::string_view name : names) {
        parent = lys_find_child(parent, module, name.data(), name.size(), nodetypes, 0);
        if (parent == nullptr) {
            return false;
        }
        steps.push_back(parent);
    }
    return true;
}

bool is_string_leaf(const lysc_node* node) {
    return node != nullptr &&
           reinterpret_cast<const lysc_node_leaf*>(node)->type->basetype == LY_TYPE_STRING;
}

std::optional<ResolvedSelection> resolve(const lysc_node* context, const ValueSelection& parts) {
    const lys_module* module = context->module;
    ResolvedSelection resolved;
    const lysc_node* parent = context;
    if (!resolve_steps(module, parent, parts.before, LYS_CONTAINER, resolved.before)) {
        return std::nullopt;
    }
    resolved.list =
        lys_find_child(parent, module, parts.list.data(), parts.list.size(), LYS_LIST, 0);
    if (resolved.list == nullptr) {
        return std::nullopt;
    }
    resolved.leaf =
        lys_find_child(resolved.list, module, parts.leaf.data(), parts.leaf.size(), LYS_LEAF, 0);
    parent = resolved.list;
    if (!is_string_leaf(resolved.leaf) ||
        !resolve_steps(module, parent, parts.after, LYS_CONTAINER | LYS_LEAF, resolved.after)) {
        return std::nullopt;
    }
    return resolved;
}

// The node the schema steps lead to from node; nullptr if one is missing.
const lyd_node* follow(const Tree& tree, const lyd_node* node,
                       const std::vector<const lysc_node*>& steps) {
    for (const lysc_node* step : steps) {
        if (node == nullptr) {
            return nullptr;
        }
        node = tree.first_instance(node, step);
    }
    return node;
}

}  // namespace

bool select_first_by_value(const Tree& tree, const lyd_node* context, std::string_view expr,
                           const lyd_node*& first) {
    if (context == nullptr) {
        return false;
    }
    const std::optional<ValueSelection> parts = parse_value_selection(expr);
    if (!parts) {
        return false;
    }
    const std::optional<ResolvedSelection> steps = resolve(context->schema, *parts);
    if (!steps) {
        return false;
    }
    first = nullptr;
    const lyd_node* parent = follow(tree, context, steps->before);
    if (parent == nullptr) {
        return true;
    }
    for (const lyd_node* entry :
         tree.leaf_values(parent, steps->list, steps->leaf).entries(parts->value)) {
        first = follow(tree, entry, steps->after);
        if (first != nullptr) {
            break;
        }
    }
    return true;
}

}  // namespace confd::detail
