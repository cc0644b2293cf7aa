#include "value_text.h"

#include <arpa/inet.h>

#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <string>

#include "tag_registry.h"

namespace confd::detail {
namespace {

std::string printf_text(const char* fmt, ...) __attribute__((format(printf, 1, 2)));

std::string printf_text(const char* fmt, ...) {
    char text[128];
    va_list args;
    va_start(args, fmt);
    std::vsnprintf(text, sizeof text, fmt, args);
    va_end(args);
    return text;
}

std::string address_text(int family, const void* address) {
    char text[INET6_ADDRSTRLEN];
    if (inet_ntop(family, address, text, sizeof text) == nullptr) {
        return "";
    }
    return text;
}

std::string buffer_text(const confd_buf_t& buf) {
    if (buf.ptr == nullptr) {
        return "";
    }
    return std::string(reinterpret_cast<const char*>(buf.ptr), buf.size);
}

std::string prefix_text(int family, const void* address, unsigned length) {
    return address_text(family, address) + "/" + std::to_string(length);
}

}  // namespace

std::string hex_octets(const unsigned char* bytes, size_t size) {
    static const char digits[] = "0123456789abcdef";
    std::string text;
    text.reserve(size * 3);
    for (size_t i = 0; bytes != nullptr && i < size; ++i) {
        if (i != 0) {
            text += ':';
        }
        text += digits[bytes[i] >> 4];
        text += digits[bytes[i] & 0x0f];
    }
    return text;
}

std::string tag_text(uint32_t tag) {
    std::optional<std::string> name = tag_name(tag);
    return name ? std::move(*name) : "tag<" + std::to_string(tag) + ">";
}

// The types a value of the datastore or a keypath can hold; any other prints
// as its type number.
std::string value_text(const confd_value_t& v) {
    switch (v.type) {
        case C_NOEXISTS:
            return "";
        case C_XMLTAG:
            return tag_text(v.val.xmltag.tag);
        case C_STR:
            return v.val.c_s == nullptr ? "" : v.val.c_s;
        case C_BUF:
            return buffer_text(v.val.buf);
        case C_INT8:
            return std::to_string(v.val.i8);
        case C_INT16:
            return std::to_string(v.val.i16);
        case C_INT32:
            return std::to_string(v.val.i32);
        case C_INT64:
            return std::to_string(v.val.i64);
        case C_UINT8:
            return std::to_string(v.val.u8);
        case C_UINT16:
            return std::to_string(v.val.u16);
        case C_UINT32:
            return std::to_string(v.val.u32);
        case C_UINT64:
            return std::to_string(v.val.u64);
        case C_IPV4:
            return address_text(AF_INET, &v.val.ip);
        case C_IPV6:
            return address_text(AF_INET6, &v.val.ip6);
        case C_BOOL:
            return v.val.boolean ? "true" : "false";
        case C_ENUM_VALUE:
            return printf_text("enum<%d>", v.val.enumvalue);
        case C_BINARY:
            return hex_octets(v.val.buf.ptr, v.val.buf.size);
        case C_IPV4_AND_PLEN:
            return prefix_text(AF_INET, &v.val.ipv4prefix.ip, v.val.ipv4prefix.len);
        case C_IPV6_AND_PLEN:
            return prefix_text(AF_INET6, &v.val.ipv6prefix.ip6, v.val.ipv6prefix.len);
        default:
            return printf_text("type<%d>", static_cast<int>(v.type));
    }
}

std::string key_text(const confd_value_t& value) {
    std::string text = value_text(value);
    if (!text.empty() && text.find_first_of(" \t{}\"\\") == std::string::npos) {
        return text;
    }
    std::string quoted = "\"";
    for (char c : text) {
        if (c == '"' || c == '\\') {
            quoted += '\\';
        }
        quoted += c;
    }
    return quoted + "\"";
}

std::string keys_text(const confd_value_t* keys) {
    std::string text = "{";
    for (int k = 0; k < MAXKEYLEN && keys[k].type != C_NOEXISTS; ++k) {
        text += (k == 0 ? "" : " ") + key_text(keys[k]);
    }
    return text + "}";
}

int copy_out(char* buf, int bufsiz, const std::string& text) {
    if (buf != nullptr && bufsiz > 0) {
        const size_t room = static_cast<size_t>(bufsiz) - 1;
        const size_t count = text.size() < room ? text.size() : room;
        std::memcpy(buf, text.data(), count);
        buf[count] = '\0';
    }
    return text.size() > INT_MAX ? INT_MAX : static_cast<int>(text.size());
}

}  // namespace confd::detail

extern "C" int confd_pp_value(char* buf, int bufsiz, const confd_value_t* v) {
    if (v == nullptr) {
        return confd::detail::copy_out(buf, bufsiz, "");
    }
    return confd::detail::copy_out(buf, bufsiz, confd::detail::value_text(*v));
}
