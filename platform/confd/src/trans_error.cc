/* The error text of a transaction, set by validation callbacks. */
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "call_trace.h"
#include "confd_lib.h"

namespace {

// Replaces the transaction's error text with the formatted one, an
// application error without a tag.
void set_error(confd_trans_ctx* tctx, const char* fmt, va_list args) {
    if (tctx == nullptr || fmt == nullptr) {
        return;
    }
    tctx->error.code = CONFD_ERRCODE_APPLICATION;
    tctx->error.apptag = xml_tag{0, 0};
    va_list measure;
    va_copy(measure, args);
    const int length = std::vsnprintf(nullptr, 0, fmt, measure);
    va_end(measure);
    if (length < 0) {
        return;
    }
    char* text = static_cast<char*>(std::malloc(static_cast<size_t>(length) + 1));
    if (text == nullptr) {
        return;
    }
    std::vsnprintf(text, static_cast<size_t>(length) + 1, fmt, args);
    std::free(tctx->error.str);
    tctx->error.str = text;
}

}  // namespace

extern "C" {

void confd_trans_seterr(confd_trans_ctx* tctx, const char* fmt, ...) {
    confd::detail::CallTrace trace("confd_trans_seterr");
    va_list args;
    va_start(args, fmt);
    set_error(tctx, fmt, args);
    va_end(args);
    if (trace.on() && tctx != nullptr && tctx->error.str != nullptr) {
        trace.set_outcome('"' + std::string(tctx->error.str) + '"');
    }
    trace.returned(CONFD_OK);
}

void confd_trans_clear_err(confd_trans_ctx* tctx) {
    if (tctx == nullptr) {
        return;
    }
    std::free(tctx->error.str);
    tctx->error.str = nullptr;
}

}  // extern "C"
