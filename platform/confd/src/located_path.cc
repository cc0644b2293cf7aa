#include "located_path.h"

#include <algorithm>
#include <cstring>
#include <functional>
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

// The paths the thread located lately. A path without %x values has a
// slot by the hash of its text, where it is found again when read again
// (the plug-in reads some paths once per entry of another list); the last
// slot is for expanding templates and for paths with %x values. `last` is
// the path located last, whose steps the next path may begin with.
struct PathMemo {
    static constexpr size_t kSlots = 32;
    LastPath slots[kSlots + 1];
    LastPath* last = nullptr;

    LastPath& slot_of(std::string_view text) {
        return slots[std::hash<std::string_view>()(text) % kSlots];
    }
    LastPath& scratch() { return slots[kSlots]; }
};

PathMemo& path_memo() {
    thread_local PathMemo memo;
    return memo;
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

// Gives into the first `known` steps of `into` those of `from`, as parsed
// and found.
void take_steps(const LocatedPath& from, size_t known, LocatedPath& into) {
    if (&from == &into) {
        return;
    }
    into.request.steps.resize(known);
    std::copy_n(from.request.steps.begin(), known, into.request.steps.begin());
    into.where.chain.assign(from.where.chain.begin(), from.where.chain.begin() + known);
    into.where.instances.assign(from.where.instances.begin(), from.where.instances.begin() + known);
}

const LocatedPath* forget(PathMemo& memo, LastPath& slot) {
    slot.tree = 0;
    memo.last = nullptr;
    return nullptr;
}

// The path in slot, as located before in tree: its fault seam applied.
const LocatedPath* found_again(const char* call, PathMemo& memo, LastPath& slot) {
    memo.last = &slot;
    trace_path(slot.located.request.steps);
    return injected_fault(call, slot.located.request.steps) == CONFD_OK ? &slot.located : nullptr;
}

bool located_in(const LastPath& slot, const Tree& tree, std::string_view text) {
    return slot.tree == tree.serial() && slot.text == text;
}

}  // namespace

const LocatedPath* locate_path(const char* call, const Tree& tree, const char* fmt, va_list args) {
    PathMemo& memo = path_memo();
    const char* text = whole_path(fmt, args);
    // The path read last, read again (an existence check, then the value),
    // is known without hashing its text.
    if (text != nullptr && memo.last != nullptr && located_in(*memo.last, tree, text)) {
        return found_again(call, memo, *memo.last);
    }
    LastPath* whole = text != nullptr ? &memo.slot_of(text) : nullptr;
    if (whole != nullptr && located_in(*whole, tree, text)) {
        return found_again(call, memo, *whole);
    }
    FormattedPath& formatted = memo.scratch().located.request.formatted;
    formatted.text.clear();
    formatted.values.clear();
    std::string error;
    if (!format_path(fmt, args, formatted, error)) {
        fail(CONFD_ERR_BADPATH, "bad path: " + error);
        return forget(memo, memo.scratch());
    }
    const std::string_view path = formatted.path;
    const bool plain = formatted.values.empty();
    LastPath& slot = !plain ? memo.scratch() : whole != nullptr ? *whole : memo.slot_of(path);
    if (plain && whole == nullptr && located_in(slot, tree, path)) {
        return found_again(call, memo, slot);
    }
    PathRequest& request = slot.located.request;
    const LastPath* last = memo.last;
    const size_t known =
        last != nullptr && last->tree == tree.serial() && plain ? shared_steps(*last, path) : 0;
    if (known != 0) {
        take_steps(last->located, known, slot.located);
    }
    if (!parse_path(path, formatted.values, request.steps, error, known)) {
        fail(CONFD_ERR_BADPATH, "bad path: " + error);
        return forget(memo, slot);
    }
    trace_path(request.steps);
    if (injected_fault(call, request.steps) != CONFD_OK ||
        locate(tree, request.steps, slot.located.where, known) != CONFD_OK) {
        return forget(memo, slot);
    }
    slot.tree = plain ? tree.serial() : 0;
    slot.text.assign(path);
    // The steps own their text; the caller's string is not kept, the
    // slot's copy stands for it.
    request.formatted.path = slot.text;
    memo.last = &slot;
    return &slot.located;
}

}  // namespace confd::detail
