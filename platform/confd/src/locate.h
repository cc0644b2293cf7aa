/*
 * Finding what a ConfD path names in a data tree: the schema node of each
 * step and the data instance, with list keys converted by their leaf's type
 * and matched by value.
 */
#ifndef CONFD_SRC_LOCATE_H
#define CONFD_SRC_LOCATE_H

#include <libyang/libyang.h>

#include <cstdarg>
#include <optional>
#include <string>
#include <vector>

#include "data_tree.h"
#include "path_format.h"
#include "path_syntax.h"
#include "typed_value.h"

namespace confd::detail {

// A path template expanded and split into steps.
struct PathRequest {
    FormattedPath formatted;
    std::vector<PathStep> steps;
};

// A key of a path as a value of the key leaf's type: a %x value of that
// type as it is, anything else converted from its text; nullopt if it does
// not convert.
std::optional<TypedValue> key_value(const Schema& schema, const lysc_node* leaf,
                                    const KeyToken& token);

// CONFD_OK, or CONFD_ERR with confd_errno CONFD_ERR_BADPATH.
int parse_request(const char* fmt, va_list args, PathRequest& request);

// Names the path of the call being traced, if tracing is on (parse_request
// does it for the paths it parses).
void trace_path(const std::vector<PathStep>& steps);

struct Location {
    std::vector<const lysc_node*> chain;  // the schema node of each step
    // The instance of each step; nullptr from the first that does not exist,
    // and for a list given without keys.
    std::vector<const lyd_node*> instances;
    const lyd_node* parent = nullptr;  // instance holding the last step (nullptr: top level)
    bool parent_exists = true;         // every step before the last exists
    const lyd_node* node = nullptr;    // the last step's instance, if it exists
    bool whole_list = false;           // the last step is a list given without keys
};

// CONFD_OK, or CONFD_ERR with confd_errno CONFD_ERR_BADPATH for a path that
// does not fit the schema (unknown node, keys of the wrong number or type).
// The first `known` steps are taken as where's chain and instances hold them
// (located before in the same tree, none of them the last step then unless
// it is the last now); the others are resolved and found.
int locate(const Tree& tree, const std::vector<PathStep>& steps, Location& where, size_t known = 0);

}  // namespace confd::detail

#endif
