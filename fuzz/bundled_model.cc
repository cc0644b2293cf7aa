#include "bundled_model.h"

#include <fstream>
#include <sstream>

namespace ipapp_fuzz {

const confdstore::Schema& BundledSchema() {
    static const confdstore::Schema schema = confdstore::Schema::load(IPAPP_FUZZ_YANG_DIR);
    return schema;
}

const std::vector<confdstore::ValidationPoint>& BundledPoints() {
    static const std::vector<confdstore::ValidationPoint> points =
        BundledSchema().validation_points();
    return points;
}

const std::string& ExampleRunning() {
    static const std::string text = [] {
        std::ifstream file(IPAPP_FUZZ_EXAMPLE_RUNNING, std::ios::binary);
        std::ostringstream content;
        content << file.rdbuf();
        return content.str();
    }();
    return text;
}

}  // namespace ipapp_fuzz
