#include "type_map.h"

#include <cstring>

#include "schema_extensions.h"

namespace confd::detail {
namespace {

struct TypeRule {
    LY_DATA_TYPE base;
    const char* value_type;  // the typedef's ipapp-ext:value-type, or nullptr
    confd_vtype confd;
};

const TypeRule kTypeTable[] = {
    {LY_TYPE_STRING, nullptr, C_BUF},
    {LY_TYPE_STRING, "ipv4", C_IPV4},
    {LY_TYPE_STRING, "ipv6", C_IPV6},
    {LY_TYPE_STRING, "ipv4-and-plen", C_IPV4_AND_PLEN},
    {LY_TYPE_STRING, "ipv6-and-plen", C_IPV6_AND_PLEN},
    {LY_TYPE_STRING, "binary", C_BINARY},
    {LY_TYPE_INT8, nullptr, C_INT8},
    {LY_TYPE_INT16, nullptr, C_INT16},
    {LY_TYPE_INT32, nullptr, C_INT32},
    {LY_TYPE_INT64, nullptr, C_INT64},
    {LY_TYPE_UINT8, nullptr, C_UINT8},
    {LY_TYPE_UINT16, nullptr, C_UINT16},
    {LY_TYPE_UINT32, nullptr, C_UINT32},
    {LY_TYPE_UINT64, nullptr, C_UINT64},
    {LY_TYPE_ENUM, nullptr, C_ENUM_VALUE},
    {LY_TYPE_BOOL, nullptr, C_BOOL},
};

bool same_value_type(const char* rule, const char* declared) {
    if (rule == nullptr || declared == nullptr) {
        return rule == nullptr && declared == nullptr;
    }
    return std::strcmp(declared, rule) == 0;
}

}  // namespace

const lysc_type* value_type_of(const lysc_type* type) {
    if (type != nullptr && type->basetype == LY_TYPE_LEAFREF) {
        return reinterpret_cast<const lysc_type_leafref*>(type)->realtype;
    }
    return type;
}

confd_vtype confd_type_of(const lysc_type* type) {
    type = value_type_of(type);
    if (type == nullptr) {
        return C_NOEXISTS;
    }
    const char* declared = type_extension_argument(type, "value-type");
    for (const TypeRule& rule : kTypeTable) {
        if (rule.base == type->basetype && same_value_type(rule.value_type, declared)) {
            return rule.confd;
        }
    }
    return C_NOEXISTS;
}

}  // namespace confd::detail
