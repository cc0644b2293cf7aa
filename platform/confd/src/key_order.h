/*
 * The order in which ConfD's database keeps list entries (ordered-by
 * system): key by key; numbers numerically, strings and binary values
 * bytewise, addresses by their bytes and then the prefix length, booleans
 * false first, enumerations by their number.
 *
 * A key tuple is encoded into bytes whose bytewise order is that order and
 * whose equality is equality of the values, so one comparison serves sorting
 * and lookup.
 */
#ifndef CONFD_SRC_KEY_ORDER_H
#define CONFD_SRC_KEY_ORDER_H

#include <string>

#include "confd_lib.h"

namespace confd::detail {

void append_order_key(std::string& key, const confd_value_t& value);

}  // namespace confd::detail

#endif
