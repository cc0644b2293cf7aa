#include "reads.h"

#include <string>

#include "call_trace.h"
#include "error_state.h"
#include "located_path.h"
#include "value_memory.h"

namespace confd::detail {

int read_exists(const char* call, const Tree& tree, const char* fmt, va_list args) {
    const LocatedPath* path = locate_path(call, tree, fmt, args);
    if (path == nullptr) {
        return CONFD_ERR;
    }
    const Location& where = path->where;
    if (where.whole_list) {
        return where.parent_exists &&
                       tree.first_instance(where.parent, where.chain.back()) != nullptr
                   ? 1
                   : 0;
    }
    return where.node != nullptr ? 1 : 0;
}

int read_num_instances(const char* call, const Tree& tree, const char* fmt, va_list args) {
    const LocatedPath* path = locate_path(call, tree, fmt, args);
    if (path == nullptr) {
        return CONFD_ERR;
    }
    const Location& where = path->where;
    if (!where.whole_list) {
        return fail(CONFD_ERR_BADPATH, normalized_path(path->request.steps) + " is not a list");
    }
    if (!where.parent_exists) {
        return fail(CONFD_ERR_NOEXISTS, normalized_path(path->request.steps) + " does not exist");
    }
    return static_cast<int>(tree.list(where.parent, where.chain.back()).entries().size());
}

int read_elem(const char* call, const Tree& tree, TypedValue& value, const char* fmt,
              va_list args) {
    const LocatedPath* path = locate_path(call, tree, fmt, args);
    if (path == nullptr) {
        return CONFD_ERR;
    }
    const Location& where = path->where;
    if (where.chain.back()->nodetype != LYS_LEAF) {
        return fail(CONFD_ERR_BADPATH, normalized_path(path->request.steps) + " is not a leaf");
    }
    if (where.node == nullptr) {
        return fail(CONFD_ERR_NOEXISTS, normalized_path(path->request.steps) + " does not exist");
    }
    auto read = TypedValue::of_node(where.node);
    if (!read) {
        return fail(CONFD_ERR_BADTYPE, normalized_path(path->request.steps) +
                                           ": the value's type has no ConfD representation");
    }
    value = std::move(*read);
    if (CallTrace* call = CallTrace::current()) {
        call->set_outcome(traced_value(value.view()));
    }
    return CONFD_OK;
}

int read_copy(const char* call, const Tree& tree, confd_value_t* out, const char* fmt,
              va_list args) {
    if (out == nullptr) {
        return null_result();
    }
    TypedValue value;
    if (read_elem(call, tree, value, fmt, args) != CONFD_OK) {
        return CONFD_ERR;
    }
    const confd_value_t view = value.view();
    if (!copy_value(view, out)) {
        return fail(CONFD_ERR_MALLOC, "out of memory");
    }
    return CONFD_OK;
}

}  // namespace confd::detail
