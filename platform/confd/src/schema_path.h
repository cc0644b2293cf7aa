/* Resolving the steps of a path against the schema, without data. */
#ifndef CONFD_SRC_SCHEMA_PATH_H
#define CONFD_SRC_SCHEMA_PATH_H

#include <libyang/libyang.h>

#include <string>
#include <vector>

#include "path_syntax.h"
#include "schema.h"

namespace confd::detail {

// The schema node of each step, appended to chain, which holds those of the
// steps before it (steps[chain.size()] is the first resolved). False with a
// message for an unknown or ambiguous node, keys on a node that is not a
// list, a wrong number of keys, or a list without keys before the last step.
bool resolve_schema(const Schema& schema, const std::vector<PathStep>& steps,
                    std::vector<const lysc_node*>& chain, std::string& error);

}  // namespace confd::detail

#endif
