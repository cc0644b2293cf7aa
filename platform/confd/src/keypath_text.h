/* A keypath printed as a path, "/servers/server{www}/ip" (confd_pp_kpath). */
#ifndef CONFD_SRC_KEYPATH_TEXT_H
#define CONFD_SRC_KEYPATH_TEXT_H

#include <string>

#include "confd_lib.h"

namespace confd::detail {

// The first `levels` elements of the path, from the root.
std::string keypath_text(const confd_hkeypath_t& hkp, int levels);

}  // namespace confd::detail

#endif
