#include "reads.h"

#include <cstring>
#include <string>
#include <string_view>

#include "call_trace.h"
#include "error_state.h"
#include "fault_injection.h"
#include "locate.h"
#include "value_memory.h"

namespace confd::detail {
namespace {

// The last whole path this thread located, and where. The plug-in checks
// that a path exists and then reads it; the second call finds the path
// where the first left it. A tree never changes, so a location stays true
// for the tree it was found in. Only whole paths given as "%s" are kept:
// their text is the whole key, where %x values could change between calls.
struct LocatedPath {
    uint64_t tree = 0;  // Tree::serial(); 0 when nothing is kept
    std::string text;
    PathRequest request;
    Location where;
};

LocatedPath& last_located() {
    thread_local LocatedPath last;
    return last;
}

// The path's text when fmt is "%s", else nullptr.
const char* whole_path(const char* fmt, va_list args) {
    if (fmt == nullptr || std::strcmp(fmt, "%s") != 0) {
        return nullptr;
    }
    va_list own;
    va_copy(own, args);
    const char* text = va_arg(own, const char*);
    va_end(own);
    return text;
}

// Expands, checks the seam and locates: the located path (the thread's, valid
// until its next read), or nullptr with the error set.
const LocatedPath* prepare(const char* call, const Tree& tree, const char* fmt, va_list args) {
    LocatedPath& last = last_located();
    const char* text = whole_path(fmt, args);
    if (text != nullptr && last.tree == tree.serial() && last.text == text) {
        trace_path(last.request.steps);
        return injected_fault(call, last.request.steps) == CONFD_OK ? &last : nullptr;
    }
    last = LocatedPath();
    if (parse_request(fmt, args, last.request) != CONFD_OK ||
        injected_fault(call, last.request.steps) != CONFD_OK ||
        locate(tree, last.request.steps, last.where) != CONFD_OK) {
        return nullptr;
    }
    // The steps own their text; the caller's string is not kept.
    last.request.formatted.path = std::string_view();
    if (text != nullptr && last.request.formatted.values.empty()) {
        last.tree = tree.serial();
        last.text = text;
    }
    return &last;
}

}  // namespace

int read_exists(const char* call, const Tree& tree, const char* fmt, va_list args) {
    const LocatedPath* path = prepare(call, tree, fmt, args);
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
    const LocatedPath* path = prepare(call, tree, fmt, args);
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
    const LocatedPath* path = prepare(call, tree, fmt, args);
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
