// What the fuzz targets load once per process besides the bundled data model
// (ipapp_test::project_schema): its validation points and the example
// running configuration.
#ifndef IPAPP_FUZZ_BUNDLED_MODEL_H
#define IPAPP_FUZZ_BUNDLED_MODEL_H

#include <confd_datastore.h>

#include <string>
#include <vector>

namespace ipapp_fuzz {

const std::vector<confdstore::ValidationPoint>& BundledPoints();

// examples/running.xml as text.
const std::string& ExampleRunning();

}  // namespace ipapp_fuzz

#endif
