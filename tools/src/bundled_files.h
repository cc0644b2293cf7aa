// The data model and plug-in that come with the tool, found relative to the
// executable: first where an install puts them (bin/ -> share/, lib/), then
// where the build tree has them.
#ifndef IPAPP_VALIDATE_BUNDLED_FILES_H
#define IPAPP_VALIDATE_BUNDLED_FILES_H

#include <initializer_list>
#include <string>

namespace ipapp_validate {

// The first of the places (relative to the executable's directory) where
// required (relative to that place) is a file; throws InputError naming the
// places looked at and the option that names the file instead.
std::string FindBundled(const char* what, std::initializer_list<const char*> places,
                        const std::string& required, const char* option);

// Throw InputError naming the places looked at when nothing is there.
std::string BundledYangDirectory();
std::string BundledPlugin();

}  // namespace ipapp_validate

#endif
