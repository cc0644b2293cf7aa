// The server instrumentation library of the data-less module ipapp-twin:
// netconfd loads it with the module and calls its three entry points. It
// registers a hook that netconfd runs on every <commit> of the candidate,
// after its own checks; the hook hands candidate and running to the engine
// and records the refusal as the commit's rpc-error. A refused commit leaves
// running as it was. <validate> of the candidate runs the same check, as the
// invoke phase of the operation, which netconfd leaves free (its own checks
// are the operation's validate phase).
#include <agt.h>
#include <agt_commit_validate.h>
#include <agt_rpc.h>
#include <agt_util.h>
#include <cfg.h>
#include <log.h>
#include <ncxconst.h>
#include <ncxmod.h>
#include <rpc.h>

#include <chrono>
#include <cstdlib>
#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "commit_check.h"
#include "model_modules.h"
#include "twin_environment.h"
#include "yuma_config_text.h"

#define EXPORT extern "C" __attribute__((visibility("default")))

namespace {

constexpr const char* kModule = "ipapp-twin";

struct Twin {
    std::vector<std::string> modules;
    ipapp_twin::CommitCheck check;
};

std::unique_ptr<Twin> twin;

const xmlChar* Xml(const char* text) {
    return reinterpret_cast<const xmlChar*>(text);
}

std::string Setting(const char* variable) {
    const char* value = std::getenv(variable);
    if (value == nullptr || *value == '\0') {
        throw std::runtime_error(std::string(variable) + " is not set (start netconfd with " +
                                 "ipapp-netconfd)");
    }
    return value;
}

void RecordRefusal(ses_cb_t* session, xml_msg_hdr_t* message,
                   const ipapp_twin::CommitVerdict& verdict) {
    ncx_errinfo_t error_info{};
    // yuma keeps the app tag's pointer and copies the message.
    error_info.error_app_tag = const_cast<xmlChar*>(Xml(verdict.app_tag));
    error_info.error_message = const_cast<xmlChar*>(Xml(verdict.message.c_str()));
    agt_record_error_errinfo(session, message, NCX_LAYER_CONTENT, ERR_NCX_OPERATION_FAILED, nullptr,
                             NCX_NT_NONE, nullptr, NCX_NT_NONE, nullptr, &error_info);
}

ipapp_twin::CommitVerdict CheckCommit(val_value_t* candidate_root) {
    const cfg_template_t* running = cfg_get_config_id(NCX_CFGID_RUNNING);
    if (twin == nullptr || running == nullptr || running->root == nullptr ||
        candidate_root == nullptr) {
        return ipapp_twin::Unchecked("netconfd has no running or candidate configuration");
    }
    try {
        return twin->check.Check(ipapp_twin::ModelConfigXml(running->root, twin->modules),
                                 ipapp_twin::ModelConfigXml(candidate_root, twin->modules));
    } catch (const std::exception& error) {
        return ipapp_twin::Unchecked(error.what());
    }
}

status_t OnCommit(ses_cb_t* session, xml_msg_hdr_t* message, val_value_t* candidate_root) {
    const auto start = std::chrono::steady_clock::now();
    const ipapp_twin::CommitVerdict verdict = CheckCommit(candidate_root);
    // The check's own share of the operation, for the log and the benchmark.
    log_info("\n%s: %s in %.1f ms", kModule, verdict.accepted ? "accepted" : verdict.app_tag,
             std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
                 .count());
    if (verdict.accepted) {
        return NO_ERR;
    }
    RecordRefusal(session, message, verdict);
    return ERR_NCX_OPERATION_FAILED;
}

bool NamesCandidate(rpc_msg_t* message) {
    val_value_t* source = val_find_child(message->rpc_input, NC_MODULE, NCX_EL_SOURCE);
    val_value_t* which = source == nullptr ? nullptr : val_get_first_child(source);
    return which != nullptr && xml_strcmp(which->name, NCX_EL_CANDIDATE) == 0;
}

// Other sources (running, a URL, inline data) get netconfd's checks only.
status_t OnValidate(ses_cb_t* session, rpc_msg_t* message, xml_node_t*) {
    if (!NamesCandidate(message)) {
        return NO_ERR;
    }
    const cfg_template_t* candidate = cfg_get_config_id(NCX_CFGID_CANDIDATE);
    return OnCommit(session, &message->mhdr, candidate == nullptr ? nullptr : candidate->root);
}

}  // namespace

EXPORT status_t y_ipapp_twin_init(const xmlChar* module, const xmlChar* revision) {
    ncx_module_t* loaded = nullptr;
    status_t result =
        ncxmod_load_module(module, revision, &agt_get_profile()->agt_savedevQ, &loaded);
    if (result != NO_ERR) {
        return result;
    }
    try {
        const std::string yang_dir = Setting(ipapp_twin::kYangDirVariable);
        twin.reset(
            new Twin{ipapp_twin::ModelModules(yang_dir),
                     ipapp_twin::CommitCheck(yang_dir, Setting(ipapp_twin::kPluginVariable))});
    } catch (const std::exception& error) {
        log_error("\nError: %s: %s\n", kModule, error.what());
        return ERR_NCX_OPERATION_FAILED;
    }
    result = agt_commit_validate_register(Xml(kModule), OnCommit);
    if (result != NO_ERR) {
        return result;
    }
    // Not unregistered at cleanup: that would drop netconfd's own phases of
    // <validate> with it; netconfd unregisters the operation when it stops.
    return agt_rpc_register_method(NC_MODULE, Xml("validate"), AGT_RPC_PH_INVOKE, OnValidate);
}

EXPORT status_t y_ipapp_twin_init2() {
    return NO_ERR;
}

EXPORT void y_ipapp_twin_cleanup() {
    agt_commit_validate_unregister(Xml(kModule));
    twin.reset();
}
