/*
 * maapi_keypath_diff_iterate: the changes of a transaction against running (tree_diff.h), as
 * keypaths from the root.
 */
#include <optional>
#include <string>

#include "agent.h"
#include "call_trace.h"
#include "confd_maapi.h"
#include "error_state.h"
#include "fault_injection.h"
#include "keypath_build.h"
#include "locate.h"
#include "tree_diff.h"

namespace {

using IterFunction = enum maapi_iter_ret (*)(confd_hkeypath_t* kp, enum maapi_iter_op op,
                                             confd_value_t* oldv, confd_value_t* newv, void* state);

enum maapi_iter_op mop_of(confd::detail::DiffOp op) {
    switch (op) {
        case confd::detail::DiffOp::created:
            return MOP_CREATED;
        case confd::detail::DiffOp::deleted:
            return MOP_DELETED;
        case confd::detail::DiffOp::modified:
            return MOP_MODIFIED;
        case confd::detail::DiffOp::value_set:
            break;
    }
    return MOP_VALUE_SET;
}

const char* mop_name(enum maapi_iter_op op) {
    switch (op) {
        case MOP_CREATED:
            return "MOP_CREATED";
        case MOP_DELETED:
            return "MOP_DELETED";
        case MOP_MODIFIED:
            return "MOP_MODIFIED";
        default:
            return "MOP_VALUE_SET";
    }
}

// A change as the trace reports it: "MOP_VALUE_SET /a/b{k}/c "text"".
std::string change_text(const confd_hkeypath_t& hkp, enum maapi_iter_op op,
                        const confd_value_t* newv) {
    std::string text = std::string(mop_name(op)) + " ";
    std::string path(static_cast<size_t>(confd_pp_kpath(nullptr, 0, &hkp)), '\0');
    confd_pp_kpath(path.data(), static_cast<int>(path.size()) + 1, &hkp);
    text += path;
    if (newv != nullptr && newv->type != C_NOEXISTS) {
        text += " " + confd::detail::traced_value(*newv);
    }
    return text;
}

confd::detail::DiffStep step_of(enum maapi_iter_ret ret) {
    switch (ret) {
        case ITER_RECURSE:
            return confd::detail::DiffStep::recurse;
        case ITER_CONTINUE:
            return confd::detail::DiffStep::skip;
        case ITER_UP:
            return confd::detail::DiffStep::up;
        default:
            return confd::detail::DiffStep::stop;
    }
}

class Iteration {
  public:
    Iteration(const confd::detail::Schema& schema, IterFunction iter, void* state,
              const confd::detail::CallTrace& trace)
        : schema_(schema), iter_(iter), state_(state), trace_(trace) {}

    confd::detail::DiffStep operator()(const confd::detail::DiffEvent& event) {
        confd::detail::write_keypath_of_node(schema_, event.node, keypath_);
        confd_hkeypath_t& hkp = keypath_.hkp;
        std::optional<confd::detail::TypedValue> value;
        confd_value_t newv;
        CONFD_SET_NOEXISTS(&newv);
        if (event.op == confd::detail::DiffOp::value_set) {
            value = confd::detail::TypedValue::of_node(event.node);
        }
        if (value) {
            newv = value->view();
        }
        confd_value_t* given = event.op == confd::detail::DiffOp::value_set ? &newv : nullptr;
        if (trace_.on()) {
            trace_.handed(change_text(hkp, mop_of(event.op), given));
        }
        const enum maapi_iter_ret ret = iter_(&hkp, mop_of(event.op), nullptr, given, state_);
        suspended_ = ret == ITER_SUSPEND;
        return step_of(ret);
    }

    bool suspended() const { return suspended_; }

  private:
    const confd::detail::Schema& schema_;
    IterFunction iter_;
    void* state_;
    const confd::detail::CallTrace& trace_;
    confd::detail::KeypathData keypath_;  // the event's, written over for the next
    bool suspended_ = false;
};

// Walks the changes below the path.
int walk(const confd::detail::TransactionView& view, const confd::detail::PathRequest& request,
         Iteration& iteration) {
    const confd::detail::DiffVisitor visit = [&](const confd::detail::DiffEvent& event) {
        return iteration(event);
    };
    const confd::detail::Tree& running = *view.running;
    const confd::detail::Tree& candidate = *view.tree;
    confd::detail::Location in_running;
    confd::detail::Location in_candidate;
    if (confd::detail::locate(running, request.steps, in_running) != CONFD_OK ||
        confd::detail::locate(candidate, request.steps, in_candidate) != CONFD_OK) {
        return CONFD_ERR;
    }
    if (in_candidate.whole_list) {
        auto first = [](const confd::detail::Tree& tree, const confd::detail::Location& where) {
            return where.parent_exists ? tree.first_child(where.parent) : nullptr;
        };
        confd::detail::diff_children(running, candidate, first(running, in_running),
                                     first(candidate, in_candidate), in_candidate.parent,
                                     in_candidate.chain.back(), visit);
    } else {
        confd::detail::diff_node(running, candidate, in_running.node, in_candidate.node, visit);
    }
    return CONFD_OK;
}

int iterate(int sock, int thandle, IterFunction iter, void* initstate,
            const confd::detail::CallTrace& trace, const char* fmtpath, va_list args) {
    if (iter == nullptr) {
        return confd::detail::fail(CONFD_ERR_PROTOUSAGE, "diff_iterate: no iterator function");
    }
    confd::detail::TransactionView view;
    if (confd::detail::transaction(sock, thandle, view) != CONFD_OK) {
        return CONFD_ERR;
    }
    confd::detail::PathRequest request;
    if (confd::detail::parse_request(fmtpath, args, request) != CONFD_OK ||
        confd::detail::injected_fault("maapi_keypath_diff_iterate", request.steps) != CONFD_OK) {
        return CONFD_ERR;
    }
    Iteration iteration(view.tree->schema(), iter, initstate, trace);
    try {
        if (walk(view, request, iteration) != CONFD_OK) {
            return CONFD_ERR;
        }
    } catch (const std::exception& error) {
        return confd::detail::fail(CONFD_ERR_INTERNAL, error.what());
    }
    if (iteration.suspended()) {
        return confd::detail::fail(CONFD_ERR_PROTOUSAGE,
                                   "diff_iterate: ITER_SUSPEND is not supported");
    }
    return CONFD_OK;
}

}  // namespace

extern "C" {

int maapi_keypath_diff_iterate(int sock, int thandle, IterFunction iter, int /*flags*/,
                               void* initstate, const char* fmtpath, ...) {
    confd::detail::CallTrace trace("maapi_keypath_diff_iterate", fmtpath);
    if (fmtpath == nullptr) {
        return trace.returned(
            confd::detail::fail(CONFD_ERR_BADPATH, "keypath_diff_iterate: no path"));
    }
    va_list args;
    va_start(args, fmtpath);
    const int result = iterate(sock, thandle, iter, initstate, trace, fmtpath, args);
    va_end(args);
    return trace.returned(result);
}

}  // extern "C"
