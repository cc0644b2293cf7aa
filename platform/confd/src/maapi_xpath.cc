/*
 * maapi_xpath_eval_expr: XPath 1.0 through libyang, the result as a string.
 *
 * Supported: expressions that select nodes (location paths with predicates
 * and functions, unions). The result is the string value of the first
 * selected node in document order (a leaf's value; for an inner node its
 * leaves' values concatenated), or "" when nothing is selected. Names are
 * written as libyang reads JSON paths: a module name prefix on a top-level
 * node and where the module changes, none below (relative names belong to
 * the context node's module). Expressions of another type (a number, a
 * string, a boolean) are refused with CONFD_ERR_XPATH, as are expressions
 * libyang cannot evaluate: libyang refuses a result that is no node-set
 * ("result is not a node set"), so one evaluation tells them apart.
 * Selections of list entries by a string leaf's value are answered from an
 * index of the tree instead (xpath_lookup.h), with the same result.
 */
#include <cstdlib>
#include <cstring>
#include <string>

#include "agent.h"
#include "call_trace.h"
#include "confd_maapi.h"
#include "error_state.h"
#include "fault_injection.h"
#include "libyang_log.h"
#include "locate.h"
#include "xpath_lookup.h"

namespace {

void append_string_value(const lyd_node* node, std::string& text) {
    if (node->schema->nodetype & LYD_NODE_TERM) {
        text += lyd_get_value(node);
        return;
    }
    for (const lyd_node* child = lyd_child(node); child != nullptr; child = child->next) {
        append_string_value(child, text);
    }
}

// The context node of fmtpath; nullptr (the root) without a path.
int context_node(const confd::detail::Tree& tree, const char* fmtpath, va_list* args,
                 const lyd_node*& node) {
    node = nullptr;
    if (fmtpath == nullptr) {
        return confd::detail::injected_fault("maapi_xpath_eval_expr", {});
    }
    confd::detail::PathRequest request;
    confd::detail::Location where;
    if (confd::detail::parse_request(fmtpath, *args, request) != CONFD_OK ||
        confd::detail::injected_fault("maapi_xpath_eval_expr", request.steps) != CONFD_OK ||
        confd::detail::locate(tree, request.steps, where) != CONFD_OK) {
        return CONFD_ERR;
    }
    if (where.whole_list) {
        return confd::detail::fail(CONFD_ERR_BADPATH, "xpath: the context path names a list");
    }
    if (where.node == nullptr) {
        return confd::detail::fail(CONFD_ERR_NOEXISTS, "xpath: the context node does not exist");
    }
    node = where.node;
    return CONFD_OK;
}

int evaluate(const confd::detail::Tree& tree, const lyd_node* context, const char* expr,
             std::string& result) {
    const lyd_node* first = nullptr;
    if (confd::detail::select_first_by_value(tree, context, expr, first)) {
        if (first != nullptr) {
            append_string_value(first, result);
        }
        return CONFD_OK;
    }
    const ly_ctx* ctx = tree.schema().context();
    ly_set* set = nullptr;
    if (lyd_find_xpath3(context, tree.first_child(nullptr), expr, nullptr, &set) != LY_SUCCESS) {
        ly_set_free(set, nullptr);
        return confd::detail::fail(CONFD_ERR_XPATH,
                                   "xpath: " + confd::detail::take_libyang_error(ctx));
    }
    if (set->count > 0) {
        append_string_value(set->dnodes[0], result);
    }
    ly_set_free(set, nullptr);
    return CONFD_OK;
}

int eval_expr(int sock, int thandle, const char* expr, char** res, void (*trace)(char*),
              const char* fmtpath, va_list* args) {
    if (res == nullptr) {
        return confd::detail::null_result();
    }
    *res = nullptr;
    if (expr == nullptr) {
        return confd::detail::fail(CONFD_ERR_XPATH, "xpath: no expression");
    }
    confd::detail::TransactionView view;
    const lyd_node* context = nullptr;
    std::string result;
    if (confd::detail::transaction(sock, thandle, view) != CONFD_OK ||
        context_node(*view.tree, fmtpath, args, context) != CONFD_OK ||
        evaluate(*view.tree, context, expr, result) != CONFD_OK) {
        return CONFD_ERR;
    }
    if (trace != nullptr) {
        std::string line = std::string("xpath ") + expr + " => \"" + result + "\"";
        trace(line.data());
    }
    *res = strdup(result.c_str());
    if (*res == nullptr) {
        return confd::detail::fail(CONFD_ERR_MALLOC, "out of memory");
    }
    return CONFD_OK;
}

}  // namespace

extern "C" int maapi_xpath_eval_expr(int sock, int thandle, const char* expr, char** res,
                                     void (*trace)(char*), const char* fmtpath, ...) {
    confd::detail::CallTrace call("maapi_xpath_eval_expr", fmtpath);
    if (call.on() && expr != nullptr) {
        call.set_argument(expr);
    }
    va_list args;
    va_start(args, fmtpath);
    const int result = eval_expr(sock, thandle, expr, res, trace, fmtpath, &args);
    va_end(args);
    if (call.on() && result == CONFD_OK) {
        call.set_outcome('"' + std::string(*res) + '"');
    }
    return call.returned(result);
}
