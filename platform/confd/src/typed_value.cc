#include "typed_value.h"

#include <arpa/inet.h>

#include <charconv>
#include <cstring>
#include <limits>

#include "type_map.h"

namespace confd::detail {
namespace {

template <typename T>
std::optional<T> parse_integer(std::string_view text) {
    if (!text.empty() && text.front() == '+') {
        text.remove_prefix(1);
    }
    T number{};
    const char* end = text.data() + text.size();
    auto [stop, error] = std::from_chars(text.data(), end, number);
    if (text.empty() || error != std::errc() || stop != end) {
        return std::nullopt;
    }
    return number;
}

bool parse_address(int family, std::string_view text, void* address) {
    char buffer[INET6_ADDRSTRLEN + 1];
    if (text.size() >= sizeof buffer) {
        return false;
    }
    text.copy(buffer, text.size());
    buffer[text.size()] = '\0';
    return inet_pton(family, buffer, address) == 1;
}

// "address/length" with length at most max_length.
template <typename Prefix>
bool parse_prefix(int family, std::string_view text, unsigned max_length, void* address,
                  Prefix* length) {
    const size_t slash = text.find('/');
    if (slash == std::string_view::npos) {
        return false;
    }
    auto bits = parse_integer<unsigned>(text.substr(slash + 1));
    if (!bits || *bits > max_length || !parse_address(family, text.substr(0, slash), address)) {
        return false;
    }
    *length = static_cast<Prefix>(*bits);
    return true;
}

int hex_digit(char c) {
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    if (c >= 'a' && c <= 'f') {
        return c - 'a' + 10;
    }
    if (c >= 'A' && c <= 'F') {
        return c - 'A' + 10;
    }
    return -1;
}

// Colon-separated hexadecimal octets ("0a:00:00:01"); the empty text is no octets.
std::optional<std::string> parse_hex_octets(std::string_view text) {
    std::string bytes;
    for (size_t i = 0; i < text.size(); i += 3) {
        const bool separated = i + 2 == text.size() || (i + 2 < text.size() && text[i + 2] == ':');
        const int high = i + 1 < text.size() ? hex_digit(text[i]) : -1;
        const int low = i + 1 < text.size() ? hex_digit(text[i + 1]) : -1;
        if (high < 0 || low < 0 || !separated || i + 3 == text.size()) {
            return std::nullopt;
        }
        bytes += static_cast<char>(high * 16 + low);
    }
    return bytes;
}

std::optional<int32_t> enum_value(const lysc_type* type, std::string_view name) {
    const auto* enumeration = reinterpret_cast<const lysc_type_enum*>(type);
    LY_ARRAY_COUNT_TYPE i;
    LY_ARRAY_FOR(enumeration->enums, i) {
        if (name == enumeration->enums[i].name) {
            return enumeration->enums[i].value;
        }
    }
    return std::nullopt;
}

template <typename T, typename Store>
bool set_integer(std::string_view text, Store store) {
    auto number = parse_integer<T>(text);
    if (number) {
        store(*number);
    }
    return number.has_value();
}

bool parse_fixed(confd_vtype type, const lysc_type* yang_type, std::string_view text,
                 confd_value_t* v) {
    auto& val = v->val;
    switch (type) {
        case C_INT8:
            return set_integer<int8_t>(text, [&](int8_t n) { val.i8 = n; });
        case C_INT16:
            return set_integer<int16_t>(text, [&](int16_t n) { val.i16 = n; });
        case C_INT32:
            return set_integer<int32_t>(text, [&](int32_t n) { val.i32 = n; });
        case C_INT64:
            return set_integer<int64_t>(text, [&](int64_t n) { val.i64 = n; });
        case C_UINT8:
            return set_integer<uint8_t>(text, [&](uint8_t n) { val.u8 = n; });
        case C_UINT16:
            return set_integer<uint16_t>(text, [&](uint16_t n) { val.u16 = n; });
        case C_UINT32:
            return set_integer<uint32_t>(text, [&](uint32_t n) { val.u32 = n; });
        case C_UINT64:
            return set_integer<uint64_t>(text, [&](uint64_t n) { val.u64 = n; });
        case C_BOOL:
            val.boolean = text == "true";
            return text == "true" || text == "false";
        case C_ENUM_VALUE: {
            auto number = yang_type != nullptr ? enum_value(yang_type, text) : std::nullopt;
            val.enumvalue = number.value_or(0);
            return number.has_value();
        }
        case C_IPV4:
            return parse_address(AF_INET, text, &val.ip);
        case C_IPV6:
            return parse_address(AF_INET6, text, &val.ip6);
        case C_IPV4_AND_PLEN:
            return parse_prefix(AF_INET, text, 32, &val.ipv4prefix.ip, &val.ipv4prefix.len);
        case C_IPV6_AND_PLEN:
            return parse_prefix(AF_INET6, text, 128, &val.ipv6prefix.ip6, &val.ipv6prefix.len);
        default:
            return false;
    }
}

// The numbers libyang already holds in binary form.
bool read_stored_number(const lyd_value& value, confd_vtype type, confd_value_t* v) {
    switch (type) {
        case C_INT8:
            v->val.i8 = value.int8;
            return true;
        case C_INT16:
            v->val.i16 = value.int16;
            return true;
        case C_INT32:
            v->val.i32 = value.int32;
            return true;
        case C_INT64:
            v->val.i64 = value.int64;
            return true;
        case C_UINT8:
            v->val.u8 = value.uint8;
            return true;
        case C_UINT16:
            v->val.u16 = value.uint16;
            return true;
        case C_UINT32:
            v->val.u32 = value.uint32;
            return true;
        case C_UINT64:
            v->val.u64 = value.uint64;
            return true;
        case C_BOOL:
            v->val.boolean = value.boolean ? 1 : 0;
            return true;
        case C_ENUM_VALUE:
            v->val.enumvalue = value.enum_item->value;
            return true;
        default:
            return false;
    }
}

}  // namespace

bool is_buffer_type(confd_vtype type) {
    return type == C_BUF || type == C_BINARY;
}

TypedValue::TypedValue() : value_{} {
    value_.type = C_NOEXISTS;
}

std::optional<TypedValue> TypedValue::parse(confd_vtype type, const lysc_type* yang_type,
                                            std::string_view text) {
    TypedValue result;
    result.value_.type = type;
    if (type == C_BUF) {
        result.bytes_ = std::string(text);
        return result;
    }
    if (type == C_BINARY) {
        auto bytes = parse_hex_octets(text);
        if (!bytes) {
            return std::nullopt;
        }
        result.bytes_ = std::move(*bytes);
        return result;
    }
    if (!parse_fixed(type, value_type_of(yang_type), text, &result.value_)) {
        return std::nullopt;
    }
    return result;
}

std::optional<TypedValue> TypedValue::of_node(const lyd_node* node) {
    if (node == nullptr || !(node->schema->nodetype & LYD_NODE_TERM)) {
        return std::nullopt;
    }
    const lysc_type* yang_type = reinterpret_cast<const lysc_node_leaf*>(node->schema)->type;
    const confd_vtype type = confd_type_of(yang_type);
    const lyd_value& stored = reinterpret_cast<const lyd_node_term*>(node)->value;
    TypedValue result;
    result.value_.type = type;
    if (read_stored_number(stored, type, &result.value_)) {
        return result;
    }
    return parse(type, yang_type, lyd_get_value(node));
}

TypedValue TypedValue::copy_of(const confd_value_t& value) {
    TypedValue result;
    result.value_ = value;
    if (is_buffer_type(value.type) && value.val.buf.ptr != nullptr) {
        result.bytes_.assign(reinterpret_cast<const char*>(value.val.buf.ptr), value.val.buf.size);
    }
    return result;
}

TypedValue TypedValue::tag(uint32_t tag, uint32_t ns) {
    TypedValue result;
    CONFD_SET_XMLTAG(&result.value_, tag, ns);
    return result;
}

confd_value_t TypedValue::view() const {
    confd_value_t value = value_;
    if (is_buffer_type(value.type)) {
        value.val.c_buf.ptr = reinterpret_cast<const unsigned char*>(bytes_.data());
        value.val.c_buf.size = static_cast<unsigned int>(bytes_.size());
    }
    return value;
}

}  // namespace confd::detail
