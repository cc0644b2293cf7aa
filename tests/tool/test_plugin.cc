// A validation plug-in for the tool's tests. Its behaviour is chosen by the
// keypath of each call: an interface key that names a behaviour ("abort",
// "throw", ...) makes validate do that; any other keypath is accepted. It
// also checks what the host promises each call and refuses, naming the
// broken promise, when the host does not keep it.
#include <confd_lib.h>
#include <velconfd.h>
#include <velmw_log.h>

#include <unistd.h>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string>

#define EXPORT extern "C" __attribute__((visibility("default")))

namespace {

constexpr const char* kLibraryName = "tool_test_plugin";

struct Context {
    int calls = 0;
};

void LogDebug(const char* format, ...) {
    va_list args;
    va_start(args, format);
    velmw_vlog_debug(get_config_vald_log_handle(), format, args);
    va_end(args);
}

std::string KeypathText(const confd_hkeypath_t* keypath) {
    char text[512];
    confd_pp_kpath(text, sizeof text, keypath);
    return text;
}

bool Names(const std::string& keypath, const char* behaviour) {
    return keypath.find(std::string("{") + behaviour + "}") != std::string::npos;
}

bool Behaviour(const char* variable, const char* value) {
    const char* set = std::getenv(variable);
    return set != nullptr && std::strcmp(set, value) == 0;
}

// The text of a broken host promise, or "".
std::string BrokenPromise(confd_trans_ctx* tctx, Context** context) {
    auto* host = static_cast<velconfd_t*>(tctx->t_opaque);
    *context = static_cast<Context*>(get_lib_context(host, kLibraryName));
    if (*context == nullptr) {
        return "no library context under the reported name";
    }
    if (velconfd_maapi_socket_get(host) < 0) {
        return "no MAAPI socket";
    }
    if (tctx->error.str != nullptr) {
        return std::string("the error text of an earlier call is still set: ") + tctx->error.str;
    }
    if (tctx->vcb_opaque == nullptr) {
        return "no validation point name";
    }
    return "";
}

}  // namespace

EXPORT int get_validation_point(char* name, unsigned size) {
    std::snprintf(name, size, "%s", kLibraryName);
    return 0;
}

EXPORT int lib_init(void** context) {
    if (Behaviour("TOOL_TEST_LIB_INIT", "fail")) {
        return -1;
    }
    *context = new Context();
    return 0;
}

EXPORT int lib_finish(void** context) {
    if (Behaviour("TOOL_TEST_LIB_FINISH", "abort")) {
        std::fputs("lib_finish gives up\n", stderr);
        std::abort();
    }
    delete static_cast<Context*>(*context);
    return 0;
}

EXPORT int validate(confd_trans_ctx* tctx, confd_hkeypath_t* keypath, confd_value_t* newval) {
    Context* context = nullptr;
    const std::string broken = BrokenPromise(tctx, &context);
    if (!broken.empty()) {
        confd_trans_seterr(tctx, "%s", broken.c_str());
        return -1;
    }
    ++context->calls;
    const std::string path = KeypathText(keypath);
    const char* point = static_cast<const char*>(tctx->vcb_opaque);
    if (Names(path, "abort")) {
        std::fprintf(stderr, "test-plugin: %s: Assertion `%s' failed.\n", point,
                     "(&keypath->v[3][0])->type == C_BUF");
        std::abort();
    }
    if (Names(path, "throw")) {
        throw std::out_of_range("stoul");
    }
    if (Names(path, "throw-int")) {
        throw 42;
    }
    if (Names(path, "exit")) {
        _exit(0);
    }
    if (Names(path, "hang")) {
        std::fprintf(stderr, "test-plugin: %s waits forever\n", point);
        for (;;) {
            pause();
        }
    }
    if (Names(path, "chatter")) {
        velmw_gen_fault(0, "validate", "tests/tool/test_plugin", __LINE__, "a fault report");
        LogDebug("a debug line from %s", point);
        std::printf("printed to stdout\n");
        std::fflush(stdout);
        return 0;
    }
    if (Names(path, "escapes")) {
        // Quote, backslash, tab, newline, a control character, a percent
        // conversion, UTF-8 and a byte that is not UTF-8.
        confd_trans_seterr(tctx, "%s", "q\" b\\ t\t n\n c\x01 p%s u\xC3\xBC x\xFF");
        return -1;
    }
    if (Names(path, "refuse")) {
        // Which point, which call of the run, and the new value's type: what
        // the host handed over.
        confd_trans_seterr(tctx, "%s call %d value type %d", point, context->calls,
                           static_cast<int>(newval->type));
        return -1;
    }
    return 0;
}
