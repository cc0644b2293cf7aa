// Prefix arithmetic on an address held as its bytes in network order (most
// significant byte first), shared by both address families.
//
// A prefix length longer than the address simply covers every byte, so
// lengths above 32 or 128 act as the full width without any shift reaching
// the width of its operand.
#ifndef NETTYPES_PREFIX_BITS_H
#define NETTYPES_PREFIX_BITS_H

#include <cstddef>
#include <cstdint>

namespace nettypes::prefix_bits {

// True when a and b, both of `size` bytes, agree in their first prefix_len
// bits.
bool SameNetwork(const uint8_t* a, const uint8_t* b, std::size_t size, unsigned prefix_len);

// True when every bit after the first prefix_len bits is zero.
bool HostBitsAllZero(const uint8_t* addr, std::size_t size, unsigned prefix_len);

// True when every bit after the first prefix_len bits is one.
bool HostBitsAllOne(const uint8_t* addr, std::size_t size, unsigned prefix_len);

}  // namespace nettypes::prefix_bits

#endif  // NETTYPES_PREFIX_BITS_H
