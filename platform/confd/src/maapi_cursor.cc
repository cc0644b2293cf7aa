/*
 * MAAPI cursors. A cursor keeps the transaction's tree and the list's
 * entries (already in delivery order, list_index.h); the keys of the current
 * entry are owned by the cursor until the next step or its destruction.
 */
#include <memory>
#include <vector>

#include "agent.h"
#include "call_trace.h"
#include "confd_maapi.h"
#include "error_state.h"
#include "fault_injection.h"
#include "list_index.h"
#include "located_path.h"
#include "typed_value.h"
#include "value_text.h"

namespace {

struct CursorState {
    std::shared_ptr<const confd::detail::Tree> tree;
    const std::vector<const lyd_node*>* entries = nullptr;  // owned by the tree
    size_t next = 0;
    std::string text;  // the expanded path, when it holds no %x value
    std::string path;  // normalised, for the fault-injection seam; made when first needed
    std::vector<confd::detail::TypedValue> keys;
};

// The cursor's normalised path. A path without %x values is parsed again
// from its text only when a fault seam, a trace or an error needs it: most
// cursors never do.
const std::string& normalized(CursorState& state) {
    if (state.path.empty()) {
        std::vector<confd::detail::PathStep> steps;
        std::string error;
        confd::detail::parse_path(state.text, {}, steps, error);
        state.path = confd::detail::normalized_path(steps);
    }
    return state.path;
}

CursorState* state_of(const maapi_cursor* mc) {
    return static_cast<CursorState*>(mc->prevterm);
}

void clear_keys(maapi_cursor* mc) {
    mc->n = 0;
    for (confd_value_t& key : mc->keys) {
        key.type = C_NOEXISTS;
    }
}

void reset(maapi_cursor* mc, int sock, int thandle) {
    clear_keys(mc);
    mc->hint_bulk = 0;
    mc->secondary_index = nullptr;
    mc->xpath_expr = nullptr;
    mc->prevterm = nullptr;
    mc->path = nullptr;
    mc->isrel = 0;
    mc->sock = sock;
    mc->thandle = thandle;
    mc->cursor_id = 0;
}

int open_cursor(int sock, int thandle, maapi_cursor* mc, const char* fmt, va_list args) {
    confd::detail::TransactionView view;
    if (confd::detail::transaction(sock, thandle, view) != CONFD_OK) {
        return CONFD_ERR;
    }
    const confd::detail::LocatedPath* located =
        confd::detail::locate_path("maapi_init_cursor", *view.tree, fmt, args);
    if (located == nullptr) {
        return CONFD_ERR;
    }
    const confd::detail::Location& where = located->where;
    if (!where.whole_list) {
        return confd::detail::fail(
            CONFD_ERR_BADPATH,
            confd::detail::normalized_path(located->request.steps) + " is not a list");
    }
    auto state = std::make_unique<CursorState>();
    state->tree = view.tree;
    if (located->request.formatted.values.empty()) {
        state->text.assign(located->request.formatted.path);
    } else {
        state->path = confd::detail::normalized_path(located->request.steps);
    }
    static const std::vector<const lyd_node*> no_entries;
    state->entries = where.parent_exists
                         ? &view.tree->list(where.parent, where.chain.back()).entries()
                         : &no_entries;
    mc->prevterm = state.release();
    return CONFD_OK;
}

// Makes the keys of entry the cursor's current keys.
int load_keys(maapi_cursor* mc, CursorState& state, const lyd_node* entry) {
    state.keys.clear();
    const bool converted = confd::detail::for_each_key_leaf(
        state.tree->schema(), entry, [&state](const lyd_node* leaf) {
            auto value = confd::detail::TypedValue::of_node(leaf);
            if (value) {
                state.keys.push_back(std::move(*value));
            }
            return value.has_value();
        });
    if (!converted) {
        return confd::detail::fail(CONFD_ERR_BADTYPE,
                                   normalized(state) + ": a key does not convert");
    }
    for (size_t i = 0; i < state.keys.size() && i < MAXKEYLEN; ++i) {
        mc->keys[i] = state.keys[i].view();
    }
    mc->n = static_cast<int>(state.keys.size());
    return CONFD_OK;
}

// maapi_get_next, untraced.
int step(maapi_cursor* mc) {
    if (mc == nullptr) {
        return confd::detail::null_result();
    }
    clear_keys(mc);
    CursorState* state = state_of(mc);
    if (state == nullptr) {
        return confd::detail::fail(CONFD_ERR_BADSTATE, "cursor not initialised or destroyed");
    }
    state->keys.clear();
    if (confd::detail::faults_registered() &&
        confd::detail::injected_fault_at("maapi_get_next", normalized(*state)) != CONFD_OK) {
        return CONFD_ERR;
    }
    if (state->next >= state->entries->size()) {
        return CONFD_OK;
    }
    return load_keys(mc, *state, (*state->entries)[state->next++]);
}

}  // namespace

extern "C" {

int maapi_init_cursor(int sock, int thandle, struct maapi_cursor* mc, const char* fmt, ...) {
    confd::detail::CallTrace trace("maapi_init_cursor", fmt);
    if (mc == nullptr) {
        return trace.returned(confd::detail::null_result());
    }
    reset(mc, sock, thandle);
    va_list args;
    va_start(args, fmt);
    const int result = open_cursor(sock, thandle, mc, fmt, args);
    va_end(args);
    return trace.returned(result);
}

int maapi_get_next(struct maapi_cursor* mc) {
    confd::detail::CallTrace trace("maapi_get_next");
    const int result = step(mc);
    CursorState* state = mc != nullptr ? state_of(mc) : nullptr;
    if (trace.on() && state != nullptr) {
        trace.set_path(normalized(*state));
        if (result == CONFD_OK) {
            trace.set_outcome(mc->n == 0 ? "end" : confd::detail::keys_text(mc->keys));
        }
    }
    return trace.returned(result);
}

void maapi_destroy_cursor(struct maapi_cursor* mc) {
    if (mc == nullptr) {
        return;
    }
    delete state_of(mc);
    mc->prevterm = nullptr;
    clear_keys(mc);
}

}  // extern "C"
