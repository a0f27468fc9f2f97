#pragma once

#include "crypto/skein/LittleEndian.h"
#include "crypto/skein/SkeinState.h"
#include "crypto/skein/Threefish.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace quillon::skein::internal {

template <std::size_t kWords>
using Words = std::array<std::uint64_t, kWords>;

/// Key words with the parity word, tweak words with their XOR.
template <std::size_t kWords>
struct KeySchedule
{
    Words<kWords + 1> key;
    Words<3> tweak;
};

template <std::size_t kSubkey, std::size_t kWords, std::size_t... kIndex>
[[gnu::always_inline]] inline void addSubkey(Words<kWords>& v, const KeySchedule<kWords>& schedule,
                                             std::index_sequence<kIndex...>) noexcept
{
    ((v[kIndex] += schedule.key[(kSubkey + kIndex) % (kWords + 1)]), ...);
    v[kWords - 3] += schedule.tweak[kSubkey % 3];
    v[kWords - 2] += schedule.tweak[(kSubkey + 1) % 3];
    v[kWords - 1] += kSubkey;
}

template <std::size_t kRound, std::size_t kPair, std::size_t kWords>
[[gnu::always_inline]] inline void mix(Words<kWords>& v) noexcept
{
    constexpr auto kPlaces = wordPlaces<kWords>()[kRound % kRoundsPerSubkey];
    constexpr int kRotation = Threefish<kWords>::kRotations[kRound % kRotationPeriod][kPair];
    std::uint64_t& first = v[kPlaces[2 * kPair]];
    std::uint64_t& second = v[kPlaces[2 * kPair + 1]];
    first += second;
    second = std::rotl(second, kRotation) ^ first;
}

template <std::size_t kRound, std::size_t kWords, std::size_t... kPair>
[[gnu::always_inline]] inline void mixAll(Words<kWords>& v, std::index_sequence<kPair...>) noexcept
{
    (mix<kRound, kPair>(v), ...);
}

template <std::size_t kSubkey, std::size_t kWords>
[[gnu::always_inline]] inline void fourRounds(Words<kWords>& v, const KeySchedule<kWords>& schedule) noexcept
{
    constexpr auto kPairs = std::make_index_sequence<kWords / 2>{};
    constexpr std::size_t kFirst = kSubkey * kRoundsPerSubkey;
    addSubkey<kSubkey>(v, schedule, std::make_index_sequence<kWords>{});
    mixAll<kFirst>(v, kPairs);
    mixAll<kFirst + 1>(v, kPairs);
    mixAll<kFirst + 2>(v, kPairs);
    mixAll<kFirst + 3>(v, kPairs);
}

template <std::size_t kWords, std::size_t... kSubkey>
[[gnu::always_inline]] inline void allRounds(Words<kWords>& v, const KeySchedule<kWords>& schedule,
                                             std::index_sequence<kSubkey...>) noexcept
{
    (fourRounds<kSubkey>(v, schedule), ...);
    addSubkey<sizeof...(kSubkey)>(v, schedule, std::make_index_sequence<kWords>{});
}

template <std::size_t kWords>
[[gnu::always_inline]] inline void processBlocks(SkeinState<kWords>& state, const unsigned char* data,
                                                 std::uint64_t blockCount,
                                                 std::uint64_t bytesPerBlock) noexcept
{
    for (; blockCount > 0; --blockCount) {
        state.tweak[0] += bytesPerBlock;
        KeySchedule<kWords> schedule;
        schedule.key[kWords] = kKeyParity;
        for (std::size_t i = 0; i < kWords; ++i) {
            schedule.key[i] = state.chain[i];
            schedule.key[kWords] ^= state.chain[i];
        }
        schedule.tweak = {state.tweak[0], state.tweak[1], state.tweak[0] ^ state.tweak[1]};
        Words<kWords> v;
        for (std::size_t i = 0; i < kWords; ++i)
            v[i] = readLittleEndian64(data + i * kWordBytes);
        allRounds(v, schedule, std::make_index_sequence<Threefish<kWords>::kRounds / kRoundsPerSubkey>{});
        for (std::size_t i = 0; i < kWords; ++i)
            state.chain[i] = v[i] ^ readLittleEndian64(data + i * kWordBytes);
        state.tweak[1] &= ~kTweakFirstBlock;
        data += SkeinState<kWords>::kBlockBytes;
    }
}

} // namespace quillon::skein::internal
