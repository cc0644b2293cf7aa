#include "value_text.h"

#include <arpa/inet.h>

#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
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

std::string timezone_text(int8_t hours, int8_t minutes) {
    if (hours == CONFD_TIMEZONE_UNDEF) {
        return "";
    }
    if (hours == 0 && minutes == 0) {
        return "Z";
    }
    const char sign = (hours < 0 || minutes < 0) ? '-' : '+';
    return printf_text("%c%02d:%02d", sign, std::abs(hours), std::abs(minutes));
}

std::string fraction_text(u_int32_t micro) {
    return micro == 0 ? "" : printf_text(".%06u", static_cast<unsigned>(micro));
}

std::string decimal64_text(const confd_decimal64& d64) {
    if (d64.fraction_digits < 1 || d64.fraction_digits > 18) {
        return printf_text("invalid64<%lld>", static_cast<long long>(d64.value));
    }
    unsigned long long scale = 1;
    for (int i = 0; i < d64.fraction_digits; ++i) {
        scale *= 10;
    }
    const bool negative = d64.value < 0;
    const unsigned long long magnitude = negative
                                             ? 0ULL - static_cast<unsigned long long>(d64.value)
                                             : static_cast<unsigned long long>(d64.value);
    return printf_text("%s%llu.%0*llu", negative ? "-" : "", magnitude / scale,
                       static_cast<int>(d64.fraction_digits), magnitude % scale);
}

std::string datetime_text(const confd_datetime& dt) {
    return printf_text("%04d-%02u-%02uT%02u:%02u:%02u", dt.year, dt.month, dt.day, dt.hour, dt.min,
                       dt.sec) +
           fraction_text(dt.micro) + timezone_text(dt.timezone, dt.timezone_minutes);
}

std::string date_text(const confd_date& date) {
    return printf_text("%04d-%02u-%02u", date.year, date.month, date.day) +
           timezone_text(date.timezone, date.timezone_minutes);
}

std::string time_text(const confd_time& time) {
    return printf_text("%02u:%02u:%02u", time.hour, time.min, time.sec) +
           fraction_text(time.micro) + timezone_text(time.timezone, time.timezone_minutes);
}

std::string duration_text(const confd_duration& d) {
    return printf_text("P%uY%uM%uDT%uH%uM%u", d.years, d.months, d.days, d.hours, d.mins, d.secs) +
           fraction_text(d.micros) + "S";
}

std::string list_text(const confd_list& list) {
    std::string text = "[";
    for (unsigned int i = 0; list.ptr != nullptr && i < list.size; ++i) {
        text += (i == 0 ? "" : " ") + value_text(list.ptr[i]);
    }
    return text + "]";
}

std::string oid_text(const confd_snmp_oid* oid) {
    std::string text;
    for (int i = 0; oid != nullptr && i < oid->len && i < 128; ++i) {
        text += (i == 0 ? "" : ".") + std::to_string(oid->oid[i]);
    }
    return text;
}

std::string prefix_text(int family, const void* address, unsigned length) {
    return address_text(family, address) + "/" + std::to_string(length);
}

std::string keypath_value_text(const confd_hkeypath_t* hkp) {
    if (hkp == nullptr) {
        return "";
    }
    const int length = confd_pp_kpath(nullptr, 0, hkp);
    std::string text(static_cast<size_t>(length) + 1, '\0');
    confd_pp_kpath(text.data(), length + 1, hkp);
    text.resize(static_cast<size_t>(length));
    return text;
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
    return tag_name(tag).value_or("tag<" + std::to_string(tag) + ">");
}

std::string value_text(const confd_value_t& v) {
    switch (v.type) {
        case C_NOEXISTS:
            return "";
        case C_XMLTAG:
        case C_XMLBEGIN:
        case C_XMLEND:
        case C_XMLBEGINDEL:
            return tag_text(v.val.xmltag.tag);
        case C_SYMBOL:
            return printf_text("symbol<%u>", v.val.symbol);
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
        case C_DOUBLE:
            return printf_text("%g", v.val.d);
        case C_IPV4:
            return address_text(AF_INET, &v.val.ip);
        case C_IPV6:
            return address_text(AF_INET6, &v.val.ip6);
        case C_BOOL:
            return v.val.boolean ? "true" : "false";
        case C_QNAME:
            return v.val.qname.prefix.size == 0
                       ? buffer_text(v.val.qname.name)
                       : buffer_text(v.val.qname.prefix) + ":" + buffer_text(v.val.qname.name);
        case C_DATETIME:
            return datetime_text(v.val.datetime);
        case C_DATE:
            return date_text(v.val.date);
        case C_TIME:
            return time_text(v.val.time);
        case C_DURATION:
            return duration_text(v.val.duration);
        case C_ENUM_VALUE:
            return printf_text("enum<%d>", v.val.enumvalue);
        case C_BIT32:
            return printf_text("bits<%x>", v.val.b32);
        case C_BIT64:
            return printf_text("bits<%llx>", static_cast<unsigned long long>(v.val.b64));
        case C_LIST:
            return list_text(v.val.list);
        case C_OBJECTREF:
            return keypath_value_text(v.val.hkp);
        case C_CDBBEGIN:
            return std::to_string(v.val.i32);
        case C_OID:
            return oid_text(v.val.oidp);
        case C_BINARY:
        case C_HEXSTR:
            return hex_octets(v.val.buf.ptr, v.val.buf.size);
        case C_BITBIG:
            return "bits<" + hex_octets(v.val.buf.ptr, v.val.buf.size) + ">";
        case C_IPV4PREFIX:
        case C_IPV4_AND_PLEN:
            return prefix_text(AF_INET, &v.val.ipv4prefix.ip, v.val.ipv4prefix.len);
        case C_IPV6PREFIX:
        case C_IPV6_AND_PLEN:
            return prefix_text(AF_INET6, &v.val.ipv6prefix.ip6, v.val.ipv6prefix.len);
        case C_DEFAULT:
            return "default";
        case C_DECIMAL64:
            return decimal64_text(v.val.d64);
        case C_IDENTITYREF:
            return printf_text("idref<%u>", v.val.idref.id);
        case C_DQUAD:
            return printf_text("%u.%u.%u.%u", v.val.dquad.quad[0], v.val.dquad.quad[1],
                               v.val.dquad.quad[2], v.val.dquad.quad[3]);
        case C_EMPTY:
            return "";
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
