#pragma once

#include "crypto/skein/LittleEndian.h"
#include "crypto/skein/SkeinCore.h"
#include "crypto/skein/Threefish.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>

/// An empty statement that the compiler has to take for one that reads and changes `object`, which then
/// stands in a register ("r") or in memory ("m"). No instruction comes of it, and without it the results are
/// the same.
///
/// The block functions need it because an optimiser sees one expression of thousands of terms in them and
/// rearranges it at will: it joins the additions of several subkeys, keeps sums of key and tweak words alive
/// for many rounds, or reorders the rounds, and then has to spill the words of the state. The barriers stand
/// where measurement put them; bench/SkeinBench.cpp shows what a change costs.
#if defined(__GNUC__)
#define KESTRUM_COMPILER_BARRIER(place, object) asm volatile("" : "+" place(object))
#else
#define KESTRUM_COMPILER_BARRIER(place, object) static_cast<void>(object)
#endif

/// The compression function of Skein, from which the block functions of the three sizes are made. Everything
/// is inlined and every index is a constant, so each becomes straight-line code on local words. How fast that
/// code is depends on the order of the statements and on the barriers as much as on their number.
namespace quillon::skein::internal {

// A plain array in a struct: with std::array the sanitizers would instrument thousands of calls.
template <std::size_t kWords>
struct Words
{
    std::uint64_t word[kWords];
};

/// The key with its parity word, and the tweak with the XOR of its words.
template <std::size_t kWords>
struct KeySchedule
{
    std::uint64_t key[kWords + 1];
    std::uint64_t tweak[3];
};

template <std::size_t kSubkey, std::size_t kIndex, std::size_t kWords>
[[gnu::always_inline]] inline void addSubkeyWord(Words<kWords>& v,
                                                 const KeySchedule<kWords>& schedule) noexcept
{
    v.word[kIndex] += schedule.key[(kSubkey + kIndex) % (kWords + 1)];
    if constexpr (kIndex == kWords - 3)
        v.word[kIndex] += schedule.tweak[kSubkey % 3];
    if constexpr (kIndex == kWords - 2)
        v.word[kIndex] += schedule.tweak[(kSubkey + 1) % 3];
    if constexpr (kIndex == kWords - 1)
        v.word[kIndex] += kSubkey;
}

/// The second word of each pair comes first, since the rounds wait for it: it was the last to be ready.
template <std::size_t kSubkey, std::size_t kWords, std::size_t... kIndex>
[[gnu::always_inline]] inline void addSubkey(Words<kWords>& v, const KeySchedule<kWords>& schedule,
                                             std::index_sequence<kIndex...>) noexcept
{
    (addSubkeyWord<kSubkey, (kIndex ^ 1)>(v, schedule), ...);
}

[[gnu::always_inline]] inline void pin(std::uint64_t& word) noexcept
{
    KESTRUM_COMPILER_BARRIER("r", word);
}

template <std::size_t kWords, std::size_t... kIndex>
[[gnu::always_inline]] inline void pinAll(Words<kWords>& v, std::index_sequence<kIndex...>) noexcept
{
    (pin(v.word[kIndex]), ...);
}

/// The two words of a pair, and how far the second one is rotated.
template <std::size_t kRound, std::size_t kPair, std::size_t kWords>
struct Pair
{
    static constexpr std::size_t kFirst = kWordPlaces<kWords>[kRound % kRoundsPerSubkey][2 * kPair];
    static constexpr std::size_t kSecond = kWordPlaces<kWords>[kRound % kRoundsPerSubkey][2 * kPair + 1];
    static constexpr int kRotation = Threefish<kWords>::kRotations[kRound % kRotationPeriod][kPair];
};

template <std::size_t kRound, std::size_t kPair, std::size_t kWords>
[[gnu::always_inline]] inline void mix(Words<kWords>& v) noexcept
{
    using P = Pair<kRound, kPair, kWords>;
    v.word[P::kFirst] += v.word[P::kSecond];
    v.word[P::kSecond] = std::rotl(v.word[P::kSecond], P::kRotation) ^ v.word[P::kFirst];
}

template <std::size_t kRound, std::size_t kPair, std::size_t kWords>
[[gnu::always_inline]] inline void addAndRotate(Words<kWords>& v) noexcept
{
    using P = Pair<kRound, kPair, kWords>;
    v.word[P::kFirst] += v.word[P::kSecond];
    v.word[P::kSecond] = std::rotl(v.word[P::kSecond], P::kRotation);
    pin(v.word[P::kSecond]);
}

template <std::size_t kRound, std::size_t kPair, std::size_t kWords>
[[gnu::always_inline]] inline void exclusiveOr(Words<kWords>& v) noexcept
{
    using P = Pair<kRound, kPair, kWords>;
    v.word[P::kSecond] ^= v.word[P::kFirst];
}

/// One round for a state that fits the registers. The additions and rotations of all pairs are independent of
/// each other and so are the exclusive-ors: in this order a processor of four units is kept busy.
template <std::size_t kRound, std::size_t kWords, std::size_t... kPair>
[[gnu::always_inline]] inline void roundOfPairs(Words<kWords>& v, std::index_sequence<kPair...>) noexcept
{
    (addAndRotate<kRound, kPair>(v), ...);
    (exclusiveOr<kRound, kPair>(v), ...);
}

template <std::size_t kRound, std::size_t kQuad, std::size_t kWords>
[[gnu::always_inline]] inline void twoRoundsOfQuad(Words<kWords>& v) noexcept
{
    constexpr Quad kThis = quadsOfRound<kWords>(kRound % kRoundsPerSubkey)[kQuad];
    mix<kRound, kThis.pairs[0]>(v);
    mix<kRound, kThis.pairs[1]>(v);
    mix<kRound + 1, kThis.nextPairs[0]>(v);
    mix<kRound + 1, kThis.nextPairs[1]>(v);
}

/// Two rounds for a state that does not fit the registers: a word that was loaded is used twice.
template <std::size_t kRound, std::size_t kWords, std::size_t... kQuad>
[[gnu::always_inline]] inline void twoRoundsOfQuads(Words<kWords>& v, std::index_sequence<kQuad...>) noexcept
{
    (twoRoundsOfQuad<kRound, kQuad>(v), ...);
}

/// One subkey and its four rounds, for a state that fits the registers of a usual 64-bit machine.
template <std::size_t kSubkey, std::size_t kWords>
[[gnu::always_inline]] inline void fourRounds(Words<kWords>& v, const KeySchedule<kWords>& schedule) noexcept
{
    constexpr std::size_t kRound = kSubkey * kRoundsPerSubkey;
    constexpr auto kIndices = std::make_index_sequence<kWords>{};
    constexpr auto kPairs = std::make_index_sequence<kWords / 2>{};
    addSubkey<kSubkey>(v, schedule, kIndices);
    pinAll(v, kIndices);
    roundOfPairs<kRound>(v, kPairs);
    roundOfPairs<kRound + 1>(v, kPairs);
    roundOfPairs<kRound + 2>(v, kPairs);
    roundOfPairs<kRound + 3>(v, kPairs);
}

/// The same for sixteen words. The key schedule is held in memory, from where an addition takes its words
/// without a register; the compiler would otherwise keep sums of it that it has to spill.
template <std::size_t kSubkey>
[[gnu::always_inline]] inline void fourRounds(Words<16>& v, KeySchedule<16>& schedule) noexcept
{
    constexpr std::size_t kRound = kSubkey * kRoundsPerSubkey;
    constexpr auto kQuads = std::make_index_sequence<4>{};
    addSubkey<kSubkey>(v, schedule, std::make_index_sequence<16>{});
    KESTRUM_COMPILER_BARRIER("m", schedule.key);
    KESTRUM_COMPILER_BARRIER("m", schedule.tweak);
    twoRoundsOfQuads<kRound>(v, kQuads);
    twoRoundsOfQuads<kRound + 2>(v, kQuads);
}

template <std::size_t kWords, std::size_t... kSubkey>
[[gnu::always_inline]] inline void encrypt(Words<kWords>& v, KeySchedule<kWords>& schedule,
                                           std::index_sequence<kSubkey...>) noexcept
{
    (fourRounds<kSubkey>(v, schedule), ...);
    addSubkey<sizeof...(kSubkey)>(v, schedule, std::make_index_sequence<kWords>{});
}

template <std::size_t kWords, std::size_t... kIndex>
[[gnu::always_inline]] inline void processBlock(SkeinState<kWords>& state, const unsigned char* data,
                                                std::index_sequence<kIndex...>) noexcept
{
    const auto [t0, t1] = state.tweak;
    const auto& chain = state.chain;
    KeySchedule<kWords> schedule{{chain[kIndex]..., (kKeyParity ^ ... ^ chain[kIndex])}, {t0, t1, t0 ^ t1}};
    Words<kWords> v{{readLittleEndian64(data + kIndex * kWordBytes)...}};
    encrypt(v, schedule, std::make_index_sequence<Threefish<kWords>::kRounds / kRoundsPerSubkey>{});
    ((state.chain[kIndex] = v.word[kIndex] ^ readLittleEndian64(data + kIndex * kWordBytes)), ...);
}

template <std::size_t kWords>
[[gnu::always_inline]] inline void processBlocks(SkeinState<kWords>& state, const unsigned char* data,
                                                 std::uint64_t blockCount,
                                                 std::uint64_t bytesPerBlock) noexcept
{
    for (; blockCount > 0; --blockCount) {
        state.tweak[0] += bytesPerBlock;
        processBlock(state, data, std::make_index_sequence<kWords>{});
        state.tweak[1] &= ~kTweakFirstBlock;
        data += SkeinState<kWords>::kBlockBytes;
    }
}

} // namespace quillon::skein::internal
