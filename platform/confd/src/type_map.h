/*
 * The one table that says which ConfD value type each YANG type reads back
 * as. Built-in types map by their base type; our typedefs that carry an
 * ipapp-ext:value-type statement map by its name.
 */
#ifndef CONFD_SRC_TYPE_MAP_H
#define CONFD_SRC_TYPE_MAP_H

#include <libyang/libyang.h>

#include "confd_lib.h"

namespace confd::detail {

// The ConfD type of a leaf's values; C_NOEXISTS when the type has no
// representation here (unions, bits, identities, ...).
confd_vtype confd_type_of(const lysc_type* type);

// The type whose values a leaf holds: a leafref's target type, else type.
const lysc_type* value_type_of(const lysc_type* type);

}  // namespace confd::detail

#endif
