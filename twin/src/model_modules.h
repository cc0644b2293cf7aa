// The YANG modules of a model directory, by name: what netconfd loads, and
// whose top-level nodes the commit hook hands to the engine.
#ifndef IPAPP_TWIN_MODEL_MODULES_H
#define IPAPP_TWIN_MODEL_MODULES_H

#include <string>
#include <vector>

namespace ipapp_twin {

// The names of the directory's *.yang files without the extension, sorted.
// Throws std::runtime_error naming the directory when it holds none.
std::vector<std::string> ModelModules(const std::string& directory);

}  // namespace ipapp_twin

#endif
