/* The library's side of the fault-injection seam (confd_fault_injection.h). */
#ifndef CONFD_SRC_FAULT_INJECTION_H
#define CONFD_SRC_FAULT_INJECTION_H

#include <string>
#include <vector>

#include "path_syntax.h"

namespace confd::detail {

// CONFD_ERR (with confd_errno set) when a fault is registered for call on the
// path of steps; CONFD_OK otherwise. Costs one atomic load while none is.
int injected_fault(const char* call, const std::vector<PathStep>& steps);

// The same for a path already normalised (normalized_path).
int injected_fault_at(const char* call, const std::string& path);

// Whether any fault is registered (one atomic load): a caller may skip
// normalising a path while none is.
bool faults_registered();

}  // namespace confd::detail

#endif
