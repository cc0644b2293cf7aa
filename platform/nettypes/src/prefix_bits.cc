#include "prefix_bits.h"

namespace nettypes::prefix_bits {
namespace {

constexpr unsigned kBitsPerByte = 8;
constexpr uint8_t kAllOnes = 0xFF;

// The byte at `index` of the netmask of a prefix_len-bit prefix.
uint8_t NetmaskByte(unsigned prefix_len, std::size_t index) {
    const std::size_t first_bit = index * kBitsPerByte;
    if (prefix_len >= first_bit + kBitsPerByte) {
        return kAllOnes;
    }
    if (prefix_len <= first_bit) {
        return 0;
    }
    const unsigned host_bits = kBitsPerByte - static_cast<unsigned>(prefix_len - first_bit);
    return static_cast<uint8_t>(kAllOnes << host_bits);
}

}  // namespace

bool SameNetwork(const uint8_t* a, const uint8_t* b, std::size_t size, unsigned prefix_len) {
    for (std::size_t i = 0; i < size; ++i) {
        if (((a[i] ^ b[i]) & NetmaskByte(prefix_len, i)) != 0) {
            return false;
        }
    }
    return true;
}

bool HostBitsAllZero(const uint8_t* addr, std::size_t size, unsigned prefix_len) {
    for (std::size_t i = 0; i < size; ++i) {
        if ((addr[i] & static_cast<uint8_t>(~NetmaskByte(prefix_len, i))) != 0) {
            return false;
        }
    }
    return true;
}

bool HostBitsAllOne(const uint8_t* addr, std::size_t size, unsigned prefix_len) {
    for (std::size_t i = 0; i < size; ++i) {
        if ((addr[i] | NetmaskByte(prefix_len, i)) != kAllOnes) {
            return false;
        }
    }
    return true;
}

}  // namespace nettypes::prefix_bits
