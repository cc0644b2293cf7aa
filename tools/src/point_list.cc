#include <algorithm>

#include "json_writer.h"
#include "report.h"

namespace ipapp_validate {
namespace {

using confdstore::ValidationPoint;

const char* Firing(const ValidationPoint& point) {
    return point.call_once ? "once" : "per instance";
}

void WriteText(const std::vector<ValidationPoint>& points, std::ostream& out) {
    size_t name_width = 0;
    size_t node_width = 0;
    for (const ValidationPoint& point : points) {
        name_width = std::max(name_width, point.name.size() + 2);
        node_width = std::max(node_width, point.node_path.size() + 2);
    }
    for (const ValidationPoint& point : points) {
        out << point.name << std::string(name_width - point.name.size(), ' ') << point.node_path
            << std::string(node_width - point.node_path.size(), ' ') << Firing(point) << '\n'
            << "    " << (point.description.empty() ? "(no description)" : point.description)
            << '\n';
    }
}

void WriteJson(const std::vector<ValidationPoint>& points, std::ostream& out) {
    JsonWriter json(out);
    json.BeginArray();
    for (const ValidationPoint& point : points) {
        json.BeginObject();
        json.StringMember("name", point.name);
        json.StringMember("node", point.node_path);
        json.Key("call_once");
        json.Bool(point.call_once);
        json.Key("dependencies");
        json.BeginArray();
        for (const std::string& dependency : point.dependencies) {
            json.String(dependency);
        }
        json.EndArray();
        json.StringMember("description", point.description);
        json.EndObject();
    }
    json.EndArray();
}

}  // namespace

void WritePointList(const std::vector<ValidationPoint>& points, OutputFormat format,
                    std::ostream& out) {
    if (format == OutputFormat::json) {
        WriteJson(points, out);
    } else {
        WriteText(points, out);
    }
}

}  // namespace ipapp_validate
