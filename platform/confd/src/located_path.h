/*
 * Locating the path of a read, reusing what the thread located before. The
 * plug-in reads one entry's leaves in turn ("/a/b{k}/c", then "/a/b{k}/d"):
 * a path that begins with steps of the last one, in the same tree, takes
 * those steps as they were parsed and found, and only its other steps are
 * parsed, resolved and found. It also reads some paths again and again (a
 * name by its index, for every entry of another list): a path given whole
 * that was located lately in the same tree is taken as it was found. A tree
 * never changes, so what was found in it stays true. Paths with %x values
 * are not reused: their text is not the whole of them.
 */
#ifndef CONFD_SRC_LOCATED_PATH_H
#define CONFD_SRC_LOCATED_PATH_H

#include <cstdarg>

#include "data_tree.h"
#include "locate.h"

namespace confd::detail {

struct LocatedPath {
    PathRequest request;  // request.formatted.path: the expanded path
    Location where;
};

// Expands the path template, applies the fault-injection seam under the
// name call and locates the path in tree: the located path (the thread's,
// valid until its next call of this), or nullptr with the error set.
const LocatedPath* locate_path(const char* call, const Tree& tree, const char* fmt, va_list args);

}  // namespace confd::detail

#endif
