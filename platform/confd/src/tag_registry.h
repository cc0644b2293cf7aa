/*
 * The tag hashes of the most recently loaded schema, for the schema-less
 * helpers confd_str2hash, confd_hash2str and the pretty-printers.
 */
#ifndef CONFD_SRC_TAG_REGISTRY_H
#define CONFD_SRC_TAG_REGISTRY_H

#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace confd::detail {

// Replaces the published tags (node name -> hash) with those of a new schema.
void publish_tags(const std::map<std::string, uint32_t>& tags);

std::optional<std::string> tag_name(uint32_t hash);
std::optional<uint32_t> tag_hash(const std::string& name);

}  // namespace confd::detail

#endif
