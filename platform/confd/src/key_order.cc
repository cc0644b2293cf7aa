#include "key_order.h"

#include <cstdint>
#include <cstring>

namespace confd::detail {
namespace {

void append_big_endian(std::string& key, uint64_t number, int bytes) {
    for (int shift = (bytes - 1) * 8; shift >= 0; shift -= 8) {
        key += static_cast<char>((number >> shift) & 0xff);
    }
}

// Signed numbers with the sign bit flipped sort as unsigned ones.
void append_signed(std::string& key, int64_t number, int bytes) {
    const uint64_t bias = uint64_t{1} << (bytes * 8 - 1);
    append_big_endian(key, static_cast<uint64_t>(number) + bias, bytes);
}

// Bytes with every NUL escaped and a terminator that sorts below any byte,
// so that a shorter text sorts before the texts it begins.
void append_bytes(std::string& key, const unsigned char* bytes, unsigned int size) {
    for (unsigned int i = 0; i < size; ++i) {
        key += static_cast<char>(bytes[i]);
        if (bytes[i] == 0) {
            key += '\xff';
        }
    }
    key += '\0';
    key += '\0';
}

void append_raw(std::string& key, const void* bytes, size_t size) {
    key.append(static_cast<const char*>(bytes), size);
}

}  // namespace

void append_order_key(std::string& key, const confd_value_t& v) {
    switch (v.type) {
        case C_INT8:
            append_signed(key, v.val.i8, 1);
            break;
        case C_INT16:
            append_signed(key, v.val.i16, 2);
            break;
        case C_INT32:
            append_signed(key, v.val.i32, 4);
            break;
        case C_ENUM_VALUE:
            append_signed(key, v.val.enumvalue, 4);
            break;
        case C_INT64:
            append_signed(key, v.val.i64, 8);
            break;
        case C_UINT8:
            append_big_endian(key, v.val.u8, 1);
            break;
        case C_UINT16:
            append_big_endian(key, v.val.u16, 2);
            break;
        case C_UINT32:
            append_big_endian(key, v.val.u32, 4);
            break;
        case C_UINT64:
            append_big_endian(key, v.val.u64, 8);
            break;
        case C_BOOL:
            key += v.val.boolean ? '\1' : '\0';
            break;
        case C_IPV4:
            append_raw(key, &v.val.ip, sizeof v.val.ip);
            break;
        case C_IPV6:
            append_raw(key, &v.val.ip6, sizeof v.val.ip6);
            break;
        case C_IPV4_AND_PLEN:
            append_raw(key, &v.val.ipv4prefix.ip, sizeof v.val.ipv4prefix.ip);
            key += static_cast<char>(v.val.ipv4prefix.len);
            break;
        case C_IPV6_AND_PLEN:
            append_raw(key, &v.val.ipv6prefix.ip6, sizeof v.val.ipv6prefix.ip6);
            key += static_cast<char>(v.val.ipv6prefix.len);
            break;
        case C_STR:
            append_bytes(
                key, reinterpret_cast<const unsigned char*>(v.val.c_s),
                v.val.c_s != nullptr ? static_cast<unsigned int>(std::strlen(v.val.c_s)) : 0);
            break;
        case C_BUF:
        case C_BINARY:
            append_bytes(key, v.val.buf.ptr, v.val.buf.size);
            break;
        default:
            break;
    }
}

}  // namespace confd::detail
