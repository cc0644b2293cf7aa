/*
 * The node names of the tag hashes of the schemas loaded in this process,
 * for the pretty-printers, which have no schema. A hash belongs to a node
 * name, so the names of several schemas live side by side.
 */
#ifndef CONFD_SRC_TAG_REGISTRY_H
#define CONFD_SRC_TAG_REGISTRY_H

#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace confd::detail {

// Adds the tags (node name -> hash) of a newly loaded schema.
void publish_tags(const std::map<std::string, uint32_t>& tags);

std::optional<std::string> tag_name(uint32_t hash);

}  // namespace confd::detail

#endif
