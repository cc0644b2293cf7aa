/*
 * The tag hashes of the schemas loaded in this process, for the schema-less
 * helpers confd_str2hash, confd_hash2str and the pretty-printers. A hash
 * belongs to a node name, so the names of several schemas live side by
 * side; a name a later schema hashes differently takes the later hash.
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
std::optional<uint32_t> tag_hash(const std::string& name);

}  // namespace confd::detail

#endif
