#include "model_modules.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <system_error>

namespace ipapp_twin {

std::vector<std::string> ModelModules(const std::string& directory) {
    std::vector<std::string> modules;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(directory, error)) {
        if (entry.path().extension() == ".yang") {
            modules.push_back(entry.path().stem().string());
        }
    }
    if (modules.empty()) {
        throw std::runtime_error(directory + ": no YANG modules (*.yang) found" +
                                 (error ? " (" + error.message() + ")" : std::string()));
    }
    std::sort(modules.begin(), modules.end());
    return modules;
}

}  // namespace ipapp_twin
