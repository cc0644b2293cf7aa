// The data model and plug-in that come with the tool, found relative to the
// executable: first where an install puts them (bin/ -> share/, lib/), then
// where the build tree has them.
#ifndef IPAPP_VALIDATE_BUNDLED_FILES_H
#define IPAPP_VALIDATE_BUNDLED_FILES_H

#include <string>

namespace ipapp_validate {

// Throw InputError naming the places looked at when nothing is there.
std::string BundledYangDirectory();
std::string BundledPlugin();

}  // namespace ipapp_validate

#endif
