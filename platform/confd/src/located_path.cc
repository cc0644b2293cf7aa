#include "located_path.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

#include "error_state.h"
#include "fault_injection.h"

namespace confd::detail {
namespace {

struct LastPath {
    uint64_t tree = 0;  // Tree::serial(); 0 when nothing may be reused
    std::string text;   // the expanded path
    LocatedPath located;
};

LastPath& last_path() {
    thread_local LastPath last;
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

// How many of the last path's steps path begins with: its text repeats the
// last path's up to the end of those steps, where path ends or has its next
// step. A list given without keys is the last step of its path, so it is
// not taken for a path that goes on.
size_t shared_steps(const LastPath& last, std::string_view path) {
    const std::vector<PathStep>& steps = last.located.request.steps;
    const size_t common = static_cast<size_t>(
        std::mismatch(path.begin(), path.end(), last.text.begin(), last.text.end()).first -
        path.begin());
    for (size_t known = steps.size(); known > 0; --known) {
        const size_t end = steps[known - 1].end;
        const bool goes_on = end < path.size();
        if (end > common || (goes_on && path[end] != '/')) {
            continue;
        }
        if (goes_on && known == steps.size() && last.located.where.whole_list) {
            continue;
        }
        return known;
    }
    return 0;
}

const LocatedPath* forget(LastPath& last) {
    last.tree = 0;
    return nullptr;
}

}  // namespace

const LocatedPath* locate_path(const char* call, const Tree& tree, const char* fmt, va_list args) {
    LastPath& last = last_path();
    PathRequest& request = last.located.request;
    const char* text = whole_path(fmt, args);
    if (text != nullptr && last.tree == tree.serial() && last.text == text) {
        trace_path(request.steps);
        return injected_fault(call, request.steps) == CONFD_OK ? &last.located : nullptr;
    }
    const bool reusable = last.tree == tree.serial();
    request.formatted.text.clear();
    request.formatted.values.clear();
    std::string error;
    if (!format_path(fmt, args, request.formatted, error)) {
        fail(CONFD_ERR_BADPATH, "bad path: " + error);
        return forget(last);
    }
    const std::string_view path = request.formatted.path;
    const bool plain = request.formatted.values.empty();
    const size_t known = reusable && plain ? shared_steps(last, path) : 0;
    if (!parse_path(path, request.formatted.values, request.steps, error, known)) {
        fail(CONFD_ERR_BADPATH, "bad path: " + error);
        return forget(last);
    }
    trace_path(request.steps);
    if (injected_fault(call, request.steps) != CONFD_OK ||
        locate(tree, request.steps, last.located.where, known) != CONFD_OK) {
        return forget(last);
    }
    last.tree = plain ? tree.serial() : 0;
    last.text.assign(path);
    // The steps own their text; the caller's string is not kept, the
    // thread's copy stands for it.
    request.formatted.path = last.text;
    return &last.located;
}

}  // namespace confd::detail
