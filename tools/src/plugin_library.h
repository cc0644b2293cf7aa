// A validation plug-in loaded the way the daemon loads one: dlopen, then the
// four entry points by name.
#ifndef IPAPP_VALIDATE_PLUGIN_LIBRARY_H
#define IPAPP_VALIDATE_PLUGIN_LIBRARY_H

#include <confd_lib.h>

#include <string>

namespace ipapp_validate {

struct EntryPoints {
    int (*get_validation_point)(char* name, unsigned size) = nullptr;
    int (*lib_init)(void** context) = nullptr;
    int (*validate)(confd_trans_ctx* tctx, confd_hkeypath_t* keypath,
                    confd_value_t* newval) = nullptr;
    int (*lib_finish)(void** context) = nullptr;
};

class PluginLibrary {
  public:
    // Loads the library and finds every entry point; throws InputError with
    // the loader's message or the name of the missing entry point. Nothing
    // of the plug-in is called.
    explicit PluginLibrary(const std::string& path);
    ~PluginLibrary();
    PluginLibrary(const PluginLibrary&) = delete;
    PluginLibrary& operator=(const PluginLibrary&) = delete;

    const EntryPoints& entry_points() const { return entry_points_; }

  private:
    template <typename Function>
    void Resolve(const char* name, Function& function);

    std::string path_;
    void* handle_ = nullptr;
    EntryPoints entry_points_;
};

}  // namespace ipapp_validate

#endif
