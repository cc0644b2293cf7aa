#include "call_plan.h"

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
    std::string text = keypath.text();
    return PlannedCall{point, std::move(text), std::move(keypath), view, std::move(value)};
}

void AddSchemaCall(std::vector<PlannedCall>& plan, const ValidationPoint& point,
                   const Datastore& datastore) {
    plan.push_back(
        MakeCall(point.name, datastore.schema_keypath(point), datastore.schema_value(point)));
}

void AddInstanceCalls(std::vector<PlannedCall>& plan, const ValidationPoint& point,
                      const std::vector<Instance>& instances) {
    for (const Instance& instance : instances) {
        plan.push_back(MakeCall(point.name, instance.keypath(), instance.new_value()));
    }
}

// The calls of the points that fire: a call-once point with its schema
// keypath, any other point once per instance.
template <typename Fires, typename Instances>
std::vector<PlannedCall> PlanPoints(const std::vector<ValidationPoint>& points,
                                    const Datastore& datastore, Fires fires, Instances instances) {
    std::vector<PlannedCall> plan;
    for (const ValidationPoint& point : points) {
        if (!fires(point)) {
            continue;
        }
        if (point.call_once) {
            AddSchemaCall(plan, point, datastore);
        } else {
            AddInstanceCalls(plan, point, instances(point));
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

std::vector<CallLabel> LabelsOf(const std::vector<PlannedCall>& plan) {
    std::vector<CallLabel> labels;
    labels.reserve(plan.size());
    for (const PlannedCall& call : plan) {
        labels.push_back(CallLabel{call.point, call.keypath_text});
    }
    return labels;
}

std::vector<PlannedCall> PlanChangedCalls(const std::vector<ValidationPoint>& points,
                                          const Datastore& datastore) {
    const confdstore::ChangeSet changes = datastore.changes();
    return PlanPoints(
        points, datastore,
        [&changes](const ValidationPoint& point) { return changes.fires(point); },
        [&changes](const ValidationPoint& point) { return changes.changed_instances(point); });
}

std::vector<PlannedCall> PlanAllCalls(const std::vector<ValidationPoint>& points,
                                      const Datastore& datastore) {
    return PlanPoints(
        points, datastore, [](const ValidationPoint&) { return true; },
        [&datastore](const ValidationPoint& point) { return datastore.instances(point); });
}

std::vector<PlannedCall> PlanExplicitCalls(const std::vector<ExplicitCall>& calls,
                                           const Datastore& datastore) {
    std::vector<PlannedCall> plan;
    for (const ExplicitCall& call : calls) {
        Keypath keypath = [&] {
            try {
                return datastore.keypath(call.keypath);
            } catch (const confdstore::Error& error) {
                throw InputError("--call " + call.point + "=" + call.keypath + ": " + error.what());
            }
        }();
        const confd_value_t tag = InnermostTag(keypath.get());
        std::string text = keypath.text();
        plan.push_back(
            PlannedCall{call.point, std::move(text), std::move(keypath), tag, std::nullopt});
    }
    return plan;
}

}  // namespace ipapp_validate
