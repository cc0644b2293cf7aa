#include "bundled_files.h"

#include <sys/stat.h>
#include <unistd.h>

#include <vector>

#include "input_error.h"

namespace ipapp_validate {
namespace {

// The directory of the running executable, with a trailing slash.
std::string ExecutableDirectory() {
    std::vector<char> path(4096);
    const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
    if (length <= 0 || static_cast<size_t>(length) >= path.size()) {
        throw InputError("cannot find the directory of the ipapp-validate executable");
    }
    const std::string executable(path.data(), static_cast<size_t>(length));
    return executable.substr(0, executable.rfind('/') + 1);
}

bool IsFile(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

}  // namespace

std::string FindBundled(const char* what, std::initializer_list<const char*> places,
                        const std::string& required, const char* option) {
    const std::string directory = ExecutableDirectory();
    std::string looked_at;
    for (const char* place : places) {
        const std::string candidate = directory + place;
        if (IsFile(candidate + required)) {
            return candidate;
        }
        looked_at += (looked_at.empty() ? "" : ", ") + candidate;
    }
    throw InputError(std::string("no bundled ") + what + " found (looked at " + looked_at +
                     "); give " + option);
}

std::string BundledYangDirectory() {
    return FindBundled("data model", {IPAPP_INSTALLED_YANG_DIR, IPAPP_BUILD_TREE_YANG_DIR},
                       "/ipapp.yang", "--yang DIR");
}

std::string BundledPlugin() {
    return FindBundled("plug-in", {IPAPP_INSTALLED_PLUGIN, IPAPP_BUILD_TREE_PLUGIN}, "",
                       "--plugin PATH");
}

}  // namespace ipapp_validate
