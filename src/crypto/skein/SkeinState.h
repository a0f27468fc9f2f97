#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace quillon::skein {

inline constexpr std::size_t kWordBytes = 8;

/// One Skein computation with a state of `kWords` 64-bit words, which is also the size of its block.
template <std::size_t kWords>
struct SkeinState
{
    static constexpr std::size_t kBlockBytes = kWords * kWordBytes;

    std::uint64_t hashBitLen;                      ///< requested output length in bits
    std::uint64_t bufferedBytes;                   ///< bytes waiting in `buffer`
    std::array<std::uint64_t, 2> tweak;            ///< T0: bytes processed so far; T1: block type and flags
    std::array<std::uint64_t, kWords> chain;       ///< the chaining value
    std::array<unsigned char, kBlockBytes> buffer; ///< the block being collected
};

using Skein256State = SkeinState<4>;
using Skein512State = SkeinState<8>;
using Skein1024State = SkeinState<16>;

/// Bits of T1: the two flags, and the block types with the flags that their first block carries.
inline constexpr std::uint64_t kTweakFirstBlock = 0x4000000000000000;
inline constexpr std::uint64_t kTweakFinalBlock = 0x8000000000000000;
inline constexpr std::uint64_t kTweakConfiguration = 0xC400000000000000;
inline constexpr std::uint64_t kTweakMessage = 0x7000000000000000;
inline constexpr std::uint64_t kTweakOutput = 0xFF00000000000000;

} // namespace quillon::skein
