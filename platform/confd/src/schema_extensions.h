/*
 * Reading the statements of our extension module (ipapp-extensions) from a
 * compiled schema node. Substatements come from the parsed node, which the
 * schema context links to every compiled node.
 */
#ifndef CONFD_SRC_SCHEMA_EXTENSIONS_H
#define CONFD_SRC_SCHEMA_EXTENSIONS_H

#include <libyang/libyang.h>

#include <string>
#include <utility>
#include <vector>

namespace confd::detail {

extern const char* const kExtensionModule;

// Arguments of the node's instances of our extension `name`, in model order.
std::vector<std::string> extension_arguments(const lysc_node* node, const char* name);

// The argument of the first instance of our extension `name` inside a type
// (and the typedefs it derives from); nullptr when there is none. Cheap: the
// value conversions ask it for every leaf they read.
const char* type_extension_argument(const lysc_type* type, const char* name);

// Substatements (keyword without prefix, argument) of the node's instance of
// our extension `name` whose argument is `argument`.
std::vector<std::pair<std::string, std::string>> extension_substatements(
    const lysc_node* node, const char* name, const std::string& argument);

}  // namespace confd::detail

#endif
