#include "call_plan.h"

#include <algorithm>

#include "input_error.h"

namespace ipapp_validate {
namespace {

using confdstore::Datastore;
using confdstore::Instance;
using confdstore::Keypath;
using confdstore::ValidationPoint;
using confdstore::Value;

PlannedCall MakeCall(const std::string& point, Keypath keypath, Value value) {
    const confd_value_t view = value.get();
    return PlannedCall{point, std::move(keypath), view, std::move(value)};
}

// The calls of the points that fire: a call-once point with its schema
// keypath, any other point once per instance.
template <typename Fires, typename Instances>
CallPlan PlanPoints(const std::vector<ValidationPoint>& points, const Datastore& datastore,
                    Fires fires, Instances instances) {
    CallPlan plan;
    for (const ValidationPoint& point : points) {
        if (!fires(point)) {
            continue;
        }
        if (point.call_once) {
            plan.Add(MakeCall(point.name, datastore.schema_keypath(point),
                              datastore.schema_value(point)));
        } else {
            plan.Add(point.name, instances(point));
        }
    }
    return plan;
}

// The innermost node's tag: element 0, or element 1 when element 0 holds the
// keys of a list entry.
confd_value_t InnermostTag(const confd_hkeypath_t& keypath) {
    for (int level = 0; level < keypath.len; ++level) {
        if (keypath.v[level][0].type == C_XMLTAG) {
            return keypath.v[level][0];
        }
    }
    confd_value_t none{};
    none.type = C_NOEXISTS;
    return none;
}

}  // namespace

void CallPlan::Add(PlannedCall call) {
    Group group;
    group.first = size_;
    group.point = call.point;
    group.made = std::move(call);
    groups_.push_back(std::move(group));
    ++size_;
}

void CallPlan::Add(const std::string& point, std::vector<Instance> instances) {
    if (instances.empty()) {
        return;
    }
    Group group;
    group.first = size_;
    group.point = point;
    group.instances = std::move(instances);
    size_ += group.instances.size();
    groups_.push_back(std::move(group));
}

const CallPlan::Group& CallPlan::GroupOf(size_t index) const {
    const auto after =
        std::upper_bound(groups_.begin(), groups_.end(), index,
                         [](size_t wanted, const Group& group) { return wanted < group.first; });
    return *(after - 1);
}

PlannedCall CallPlan::Make(size_t index) const {
    const Group& group = GroupOf(index);
    if (group.made) {
        return *group.made;
    }
    const Instance& instance = group.instances[index - group.first];
    return MakeCall(group.point, instance.keypath(), instance.new_value());
}

CallLabel CallPlan::Label(size_t index) const {
    const PlannedCall call = Make(index);
    return CallLabel{call.point, call.keypath.text()};
}

CallPlan PlanChangedCalls(const std::vector<ValidationPoint>& points, const Datastore& datastore) {
    const confdstore::ChangeSet changes = datastore.changes();
    return PlanPoints(
        points, datastore,
        [&changes](const ValidationPoint& point) { return changes.fires(point); },
        [&changes](const ValidationPoint& point) { return changes.changed_instances(point); });
}

CallPlan PlanAllCalls(const std::vector<ValidationPoint>& points, const Datastore& datastore) {
    return PlanPoints(
        points, datastore, [](const ValidationPoint&) { return true; },
        [&datastore](const ValidationPoint& point) { return datastore.instances(point); });
}

CallPlan PlanExplicitCalls(const std::vector<ExplicitCall>& calls, const Datastore& datastore) {
    CallPlan plan;
    for (const ExplicitCall& call : calls) {
        Keypath keypath = [&] {
            try {
                return datastore.keypath(call.keypath);
            } catch (const confdstore::Error& error) {
                throw InputError("--call " + call.point + "=" + call.keypath + ": " + error.what());
            }
        }();
        const confd_value_t tag = InnermostTag(keypath.get());
        plan.Add(PlannedCall{call.point, std::move(keypath), tag, std::nullopt});
    }
    return plan;
}

}  // namespace ipapp_validate
