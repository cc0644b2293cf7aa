// Which validation calls a run makes, in order: the point's name, the keypath
// and the new value each call gets.
//
// Order: points in the model's order (as the schema lists them); per point,
// a call-once point once with its schema keypath, any other point once per
// candidate instance in the order the datastore delivers them.
#ifndef IPAPP_VALIDATE_CALL_PLAN_H
#define IPAPP_VALIDATE_CALL_PLAN_H

#include <confd_datastore.h>

#include <optional>
#include <string>
#include <vector>

#include "options.h"
#include "run_report.h"

namespace ipapp_validate {

struct PlannedCall {
    std::string point;
    std::string keypath_text;
    confdstore::Keypath keypath;
    // The new value; the datastore's value owns what it points to, when it
    // points anywhere.
    confd_value_t new_value;
    std::optional<confdstore::Value> value_owner;
};

std::vector<CallLabel> LabelsOf(const std::vector<PlannedCall>& plan);

// The points whose node, a descendant of it or a dependency differs between
// running and candidate: call-once points once, others per changed instance
// that exists in the candidate.
std::vector<PlannedCall> PlanChangedCalls(const std::vector<confdstore::ValidationPoint>& points,
                                          const confdstore::Datastore& datastore);

// Every point: call-once points once, others for every candidate instance.
std::vector<PlannedCall> PlanAllCalls(const std::vector<confdstore::ValidationPoint>& points,
                                      const confdstore::Datastore& datastore);

// The calls named on the command line; the new value is the tag of the
// keypath's innermost node. Throws InputError for a keypath that does not fit
// the model.
std::vector<PlannedCall> PlanExplicitCalls(const std::vector<ExplicitCall>& calls,
                                           const confdstore::Datastore& datastore);

}  // namespace ipapp_validate

#endif
