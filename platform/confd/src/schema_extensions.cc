#include "schema_extensions.h"

#include <libyang/plugins_exts.h>

#include <cstring>

namespace confd::detail {

const char* const kExtensionModule = "ipapp-extensions";

namespace {

bool is_ours(const lysc_ext_instance& ext, const char* name) {
    return ext.def != nullptr && ext.def->module != nullptr &&
           std::strcmp(ext.def->module->name, kExtensionModule) == 0 &&
           std::strcmp(ext.def->name, name) == 0;
}

std::vector<std::string> arguments(const lysc_ext_instance* exts, const char* name) {
    std::vector<std::string> found;
    LY_ARRAY_COUNT_TYPE i;
    LY_ARRAY_FOR(exts, i) {
        if (is_ours(exts[i], name)) {
            found.emplace_back(exts[i].argument != nullptr ? exts[i].argument : "");
        }
    }
    return found;
}

std::string without_prefix(const char* keyword) {
    const char* colon = std::strchr(keyword, ':');
    return colon != nullptr ? colon + 1 : keyword;
}

}  // namespace

std::vector<std::string> extension_arguments(const lysc_node* node, const char* name) {
    return arguments(node->exts, name);
}

const char* type_extension_argument(const lysc_type* type, const char* name) {
    LY_ARRAY_COUNT_TYPE i;
    LY_ARRAY_FOR(type->exts, i) {
        if (is_ours(type->exts[i], name)) {
            return type->exts[i].argument != nullptr ? type->exts[i].argument : "";
        }
    }
    return nullptr;
}

std::vector<std::pair<std::string, std::string>> extension_substatements(
    const lysc_node* node, const char* name, const std::string& argument) {
    std::vector<std::pair<std::string, std::string>> statements;
    const auto* parsed = static_cast<const lysp_node*>(node->priv);
    if (parsed == nullptr) {
        return statements;
    }
    LY_ARRAY_COUNT_TYPE i;
    LY_ARRAY_FOR(parsed->exts, i) {
        const lysp_ext_instance& ext = parsed->exts[i];
        if (ext.def == nullptr || std::strcmp(ext.def->name, name) != 0 ||
            ext.argument == nullptr || argument != ext.argument) {
            continue;
        }
        for (const lysp_stmt* stmt = ext.child; stmt != nullptr; stmt = stmt->next) {
            statements.emplace_back(without_prefix(stmt->stmt), stmt->arg ? stmt->arg : "");
        }
        break;
    }
    return statements;
}

}  // namespace confd::detail
