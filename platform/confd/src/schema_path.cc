#include "schema_path.h"

namespace confd::detail {
namespace {

bool fail(std::string& error, const std::string& message) {
    error = message;
    return false;
}

bool check_keys(const Schema& schema, const PathStep& step, const lysc_node* node, bool last,
                std::string& error) {
    const bool is_list = node->nodetype == LYS_LIST;
    if (step.keyed && !is_list) {
        return fail(error, "keys given for '" + step.name + "', which is not a list");
    }
    if (step.keyed && step.keys.size() != schema.keys(node).size()) {
        return fail(error, "'" + step.name + "' has " + std::to_string(schema.keys(node).size()) +
                               " keys, " + std::to_string(step.keys.size()) + " given");
    }
    if (is_list && !step.keyed && !last) {
        return fail(error, "no keys given for list '" + step.name + "'");
    }
    return true;
}

}  // namespace

bool resolve_schema(const Schema& schema, const std::vector<PathStep>& steps,
                    std::vector<const lysc_node*>& chain, std::string& error) {
    const lysc_node* parent = chain.empty() ? nullptr : chain.back();
    chain.reserve(steps.size());
    for (size_t i = chain.size(); i < steps.size(); ++i) {
        const PathStep& step = steps[i];
        const lysc_node* node = nullptr;
        if (step.tag) {
            node = schema.find_child(parent, *step.tag);
        } else {
            bool ambiguous = false;
            node = schema.find_child(parent, step.prefix, step.name, ambiguous);
            if (ambiguous) {
                return fail(error, "'" + step.name + "' is ambiguous; give its module prefix");
            }
        }
        if (node == nullptr) {
            return fail(error, "unknown node '" + step.name + "' in " +
                                   (parent != nullptr ? schema.path(parent) : "/"));
        }
        if (!check_keys(schema, step, node, i + 1 == steps.size(), error)) {
            return false;
        }
        chain.push_back(node);
        parent = node;
    }
    return true;
}

}  // namespace confd::detail
