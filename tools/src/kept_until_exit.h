// Objects the tool keeps until the process ends instead of destroying them.
// The model and the parsed configurations go with the process at once:
// freeing them node by node at the end of a run costs about a sixteenth of
// their parse, and after the plug-in's process has shared their pages each
// page freed faults once more.
#ifndef IPAPP_VALIDATE_KEPT_UNTIL_EXIT_H
#define IPAPP_VALIDATE_KEPT_UNTIL_EXIT_H

#include <memory>
#include <utility>
#include <vector>

namespace ipapp_validate {

template <typename T>
const T& KeptUntilExit(T value) {
    // Never destroyed, and reachable to the end: leak checkers count what it
    // holds as kept, not lost.
    static auto* const kept = new std::vector<std::unique_ptr<const T>>();
    kept->push_back(std::make_unique<const T>(std::move(value)));
    return *kept->back();
}

}  // namespace ipapp_validate

#endif
