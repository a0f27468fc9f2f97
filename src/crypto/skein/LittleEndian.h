#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace quillon::skein::internal {

/// The same value with its bytes in the opposite order.
[[nodiscard]] constexpr std::uint64_t reverseBytes(std::uint64_t value) noexcept
{
    std::uint64_t reversed = 0;
    for (int i = 0; i < 8; ++i) {
        reversed = (reversed << 8) | (value & 0xFF);
        value >>= 8;
    }
    return reversed;
}

/// A little-endian word at any address, and its counterpart. Plain copies where the machine is little-endian.
[[nodiscard]] inline std::uint64_t readLittleEndian64(const unsigned char* bytes) noexcept
{
    std::uint64_t value;
    std::memcpy(&value, bytes, sizeof value);
    return std::endian::native == std::endian::little ? value : reverseBytes(value);
}

inline void writeLittleEndian64(unsigned char* bytes, std::uint64_t value) noexcept
{
    if constexpr (std::endian::native != std::endian::little)
        value = reverseBytes(value);
    std::memcpy(bytes, &value, sizeof value);
}

} // namespace quillon::skein::internal
