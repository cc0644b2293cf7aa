/*
 * Tag hashes of node names. A name's hash is pinned by ipapp-ext:id-value
 * or else computed from the name (31 bits, as ConfD's automatic hashes).
 * Distinct names must not share a hash: loading a schema where they do
 * fails, naming both.
 */
#ifndef CONFD_SRC_TAG_HASH_H
#define CONFD_SRC_TAG_HASH_H

#include <libyang/libyang.h>

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace confd::detail {

// FNV-1a over the text, folded to 31 bits.
uint32_t name_hash(std::string_view text);

// Name -> hash for the nodes given; throws confdstore::Error on conflicting
// pins or on a collision.
std::map<std::string, uint32_t> tag_table(const std::vector<const lysc_node*>& nodes);

}  // namespace confd::detail

#endif
