// The host state of one validation transaction: the MAAPI socket, the daemon
// instance and the context of each loaded library, keyed by library name.
#include <functional>
#include <map>
#include <new>
#include <string>
#include <string_view>

#include "velconfd_host.h"

struct velconfd {
    VelConfdInterface* instance;
    int maapi_socket;
    // Names are copied: a library's name string need not outlive its registration.
    std::map<std::string, void*, std::less<>> lib_contexts;
};

namespace {

using LibContexts = decltype(velconfd::lib_contexts);

// Looks a name up without copying it, so lookups and removals cannot fail.
LibContexts::iterator find_lib(velconfd_t& velconfd, const char* lib_name) {
    return velconfd.lib_contexts.find(std::string_view(lib_name));
}

}  // namespace

velconfd_t* velconfd_create(VelConfdInterface* instance, int maapi_sock) {
    return new (std::nothrow) velconfd{instance, maapi_sock, {}};
}

void velconfd_destroy(velconfd_t* velconfd) {
    delete velconfd;
}

int velconfd_set_lib_context(velconfd_t* velconfd, const char* lib_name, void* context) {
    if (velconfd == nullptr || lib_name == nullptr) {
        return -1;
    }
    if (context == nullptr) {
        const auto found = find_lib(*velconfd, lib_name);
        if (found != velconfd->lib_contexts.end()) {
            velconfd->lib_contexts.erase(found);
        }
        return 0;
    }
    try {
        velconfd->lib_contexts[lib_name] = context;
    } catch (const std::bad_alloc&) {
        return -1;
    }
    return 0;
}

int velconfd_maapi_socket_get(velconfd_t* velconfd) {
    return velconfd != nullptr ? velconfd->maapi_socket : -1;
}

void* get_lib_context(velconfd_t* velconfd, const char* lib_name) {
    if (velconfd == nullptr || lib_name == nullptr) {
        return nullptr;
    }
    const auto found = find_lib(*velconfd, lib_name);
    return found != velconfd->lib_contexts.end() ? found->second : nullptr;
}

VelConfdInterface* velconfd_instance_get(velconfd_t* velconfd) {
    return velconfd != nullptr ? velconfd->instance : nullptr;
}
