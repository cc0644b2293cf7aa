#include "plugin_library.h"

#include <dlfcn.h>

#include "input_error.h"

namespace ipapp_validate {

PluginLibrary::PluginLibrary(const std::string& path) : path_(path) {
    // Every symbol is bound now, so a plug-in built against another platform
    // fails here, with the loader's message, rather than in the middle of a run.
    handle_ = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (handle_ == nullptr) {
        throw InputError("cannot load the plug-in: " + std::string(dlerror()));
    }
    try {
        Resolve("get_validation_point", entry_points_.get_validation_point);
        Resolve("lib_init", entry_points_.lib_init);
        Resolve("validate", entry_points_.validate);
        Resolve("lib_finish", entry_points_.lib_finish);
    } catch (...) {
        dlclose(handle_);
        throw;
    }
}

PluginLibrary::~PluginLibrary() {
    dlclose(handle_);
}

template <typename Function>
void PluginLibrary::Resolve(const char* name, Function& function) {
    dlerror();
    void* symbol = dlsym(handle_, name);
    if (symbol == nullptr) {
        throw InputError(path_ + ": not a validation plug-in: it has no entry point '" + name +
                         "'");
    }
    function = reinterpret_cast<Function>(symbol);
}

}  // namespace ipapp_validate
