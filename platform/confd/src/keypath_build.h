/*
 * Building confd_hkeypath_t values: from a data node (an instance keypath,
 * "/config/interface/l3{5}/ipv6/nd/ra"), from a schema node (the schema
 * keypath of a call-once point, "/config/interface/l3") or from a path.
 * Tags are the schema's hashes, keys typed values; each level ends with a
 * C_NOEXISTS value.
 */
#ifndef CONFD_SRC_KEYPATH_BUILD_H
#define CONFD_SRC_KEYPATH_BUILD_H

#include <libyang/libyang.h>

#include <memory>
#include <string>
#include <vector>

#include "confd_lib.h"
#include "schema.h"
#include "typed_value.h"

namespace confd::detail {

// A keypath and the values its keys point into. Not copyable: the keypath
// points into this object.
struct KeypathData {
    KeypathData() = default;
    KeypathData(const KeypathData&) = delete;
    KeypathData& operator=(const KeypathData&) = delete;

    confd_hkeypath_t hkp{};
    std::vector<TypedValue> values;
    int levels_written = 0;  // filled by the last write_keypath_of_node, cleared by the next
};

// Throw confdstore::Error for a path deeper than a keypath holds.
std::shared_ptr<const KeypathData> keypath_of_node(const Schema& schema, const lyd_node* node);
// The same keypath written over data, whose storage is reused: for a walk
// that hands out one keypath after another.
void write_keypath_of_node(const Schema& schema, const lyd_node* node, KeypathData& data);
std::shared_ptr<const KeypathData> keypath_of_schema(const Schema& schema, const lysc_node* node);
// Also throws for a path that does not fit the schema.
std::shared_ptr<const KeypathData> keypath_of_path(const Schema& schema, const std::string& path);

}  // namespace confd::detail

#endif
