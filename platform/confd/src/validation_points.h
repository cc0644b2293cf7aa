/* The validation points a schema declares with ipapp-ext:validate. */
#ifndef CONFD_SRC_VALIDATION_POINTS_H
#define CONFD_SRC_VALIDATION_POINTS_H

#include <libyang/libyang.h>

#include <vector>

#include "confd_datastore.h"

namespace confd::detail {

class Schema;

// The points on the given nodes, in node order and, per node, model order.
// Throws confdstore::Error for a malformed declaration.
std::vector<confdstore::ValidationPoint> read_validation_points(
    const Schema& schema, const std::vector<const lysc_node*>& nodes);

}  // namespace confd::detail

#endif
