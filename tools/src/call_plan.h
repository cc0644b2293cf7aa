// Which validation calls a run makes, in order: the point's name, the keypath
// and the new value each call gets.
//
// Order: points in the model's order (as the schema lists them); per point,
// a call-once point once with its schema keypath, any other point once per
// candidate instance in the order the datastore delivers them.
//
// The plan is compact: a call-once or explicit call is made when planned,
// but a point that fires per instance holds only its candidate instances (a
// node each); their keypaths and values are made one at a time, when the
// call is made or labelled. A keypath with its key buffers is kilobytes, and
// a large configuration fires hundreds of thousands of calls.
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
    confdstore::Keypath keypath;
    // The new value; the datastore's value owns what it points to, when it
    // points anywhere.
    confd_value_t new_value;
    std::optional<confdstore::Value> value_owner;
};

class CallPlan {
  public:
    // A call made now.
    void Add(PlannedCall call);
    // A call per instance, made when asked for.
    void Add(const std::string& point, std::vector<confdstore::Instance> instances);

    size_t size() const { return size_; }
    // The call at index (< size()), made now; it holds what it points to.
    PlannedCall Make(size_t index) const;
    // Its point and keypath text, for the report.
    CallLabel Label(size_t index) const;

  private:
    // Calls index first.. of one point: one made call, or one per instance.
    struct Group {
        size_t first = 0;
        std::string point;
        std::optional<PlannedCall> made;
        std::vector<confdstore::Instance> instances;
    };

    const Group& GroupOf(size_t index) const;

    std::vector<Group> groups_;
    size_t size_ = 0;
};

// The points whose node, a descendant of it or a dependency differs between
// running and candidate: call-once points once, others per changed instance
// that exists in the candidate.
CallPlan PlanChangedCalls(const std::vector<confdstore::ValidationPoint>& points,
                          const confdstore::Datastore& datastore);

// Every point: call-once points once, others for every candidate instance.
CallPlan PlanAllCalls(const std::vector<confdstore::ValidationPoint>& points,
                      const confdstore::Datastore& datastore);

// The calls named on the command line; the new value is the tag of the
// keypath's innermost node. Throws InputError for a keypath that does not fit
// the model.
CallPlan PlanExplicitCalls(const std::vector<ExplicitCall>& calls,
                           const confdstore::Datastore& datastore);

}  // namespace ipapp_validate

#endif
