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

/// The Skein hash function, version 1.3, in plain hashing mode: no tree, no key, no personalisation.
/// Published as "The Skein Hash Function Family", version 1.3, 1 October 2010 (Ferguson, Lucks, Schneier,
/// Whiting, Bellare, Kohno, Callas, Walker).
///
/// For each state size:
/// - Init starts a message whose digest has `hashBitLen` bits. It sets the whole state, whatever was in it.
/// - Update absorbs `byteCount` bytes; a null pointer is fine with a count of 0. The last block
///   is always kept back, since only Final can mark it as the last.
/// - Final writes (hashBitLen + 7) / 8 bytes to `output`. Only Init may follow.
/// - Block runs `blockCount` whole blocks from `data` through the compression function, each counting as
///   `bytesPerBlock` bytes of the message.
///
/// Init, Update and Final return a status, 0 for success; none of them has a way to fail. A state belongs to
/// one thread at a time, and `data` may be the state's own buffer only for Block.
namespace quillon::skein {

template <std::size_t kWords>
std::uint32_t skeinInit(SkeinState<kWords>& state, std::uint64_t hashBitLen) noexcept;

template <std::size_t kWords>
std::uint32_t skeinUpdate(SkeinState<kWords>& state, const void* data, std::uint64_t byteCount) noexcept;

template <std::size_t kWords>
std::uint32_t skeinFinal(SkeinState<kWords>& state, void* output) noexcept;

template <std::size_t kWords>
void skeinBlock(SkeinState<kWords>& state, const unsigned char* data, std::uint64_t blockCount,
                std::uint64_t bytesPerBlock) noexcept;

/// The same by the names of the state sizes.
inline constexpr auto& skein256Init = skeinInit<4>;
inline constexpr auto& skein256Update = skeinUpdate<4>;
inline constexpr auto& skein256Final = skeinFinal<4>;
inline constexpr auto& skein256Block = skeinBlock<4>;

inline constexpr auto& skein512Init = skeinInit<8>;
inline constexpr auto& skein512Update = skeinUpdate<8>;
inline constexpr auto& skein512Final = skeinFinal<8>;
inline constexpr auto& skein512Block = skeinBlock<8>;

inline constexpr auto& skein1024Init = skeinInit<16>;
inline constexpr auto& skein1024Update = skeinUpdate<16>;
inline constexpr auto& skein1024Final = skeinFinal<16>;
inline constexpr auto& skein1024Block = skeinBlock<16>;

} // namespace quillon::skein
