#include "bundled_model.h"

#include <ipapp_test_support/confd_fixture.h>

#include <fstream>
#include <sstream>

namespace ipapp_fuzz {

const std::vector<confdstore::ValidationPoint>& BundledPoints() {
    static const std::vector<confdstore::ValidationPoint> points =
        ipapp_test::project_schema().validation_points();
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
