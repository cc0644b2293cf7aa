#include "validation_points.h"

#include "path_syntax.h"
#include "schema.h"
#include "schema_extensions.h"
#include "schema_path.h"

namespace confd::detail {
namespace {

// The text on one line: runs of white space become one blank.
std::string one_line(const std::string& text) {
    std::string line;
    for (char c : text) {
        const bool blank = c == ' ' || c == '\t' || c == '\n' || c == '\r';
        if (!blank) {
            line += c;
        } else if (!line.empty() && line.back() != ' ') {
            line += ' ';
        }
    }
    if (!line.empty() && line.back() == ' ') {
        line.pop_back();
    }
    return line;
}

const lysc_node* dependency_node(const Schema& schema, const confdstore::ValidationPoint& point,
                                 const std::string& path) {
    std::vector<PathStep> steps;
    std::vector<const lysc_node*> chain;
    std::string error;
    if (!parse_path_text(path, steps, error) || !resolve_schema(schema, steps, chain, error)) {
        throw confdstore::Error("validation point " + point.name + " on " + point.node_path +
                                ": bad dependency '" + path + "': " + error);
    }
    return chain.back();
}

bool parse_call_once(const confdstore::ValidationPoint& point, const std::string& value) {
    if (value != "true" && value != "false") {
        throw confdstore::Error("validation point " + point.name + " on " + point.node_path +
                                ": call-once must be true or false, not '" + value + "'");
    }
    return value == "true";
}

confdstore::ValidationPoint read_point(const Schema& schema, const lysc_node* node,
                                       const std::string& name) {
    confdstore::ValidationPoint point;
    point.name = name;
    point.node_path = schema.path(node);
    point.node = node;
    for (const auto& [keyword, argument] : extension_substatements(node, "validate", name)) {
        if (keyword == "call-once") {
            point.call_once = parse_call_once(point, argument);
        } else if (keyword == "dependency") {
            point.dependency_nodes.push_back(dependency_node(schema, point, argument));
            point.dependencies.push_back(argument);
        } else if (keyword == "description") {
            point.description = one_line(argument);
        }
    }
    if (point.call_once && node->nodetype != LYS_LIST && node->nodetype != LYS_LEAFLIST) {
        throw confdstore::Error("validation point " + name + " on " + point.node_path +
                                ": call-once is only allowed on lists and leaf-lists");
    }
    return point;
}

}  // namespace

std::vector<confdstore::ValidationPoint> read_validation_points(
    const Schema& schema, const std::vector<const lysc_node*>& nodes) {
    std::vector<confdstore::ValidationPoint> points;
    for (const lysc_node* node : nodes) {
        for (const std::string& name : extension_arguments(node, "validate")) {
            points.push_back(read_point(schema, node, name));
        }
    }
    return points;
}

}  // namespace confd::detail
