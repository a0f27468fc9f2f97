#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace quillon::skein::internal {

/// Threefish adds a subkey before every group of so many rounds, and once more after the last round.
inline constexpr std::size_t kRoundsPerSubkey = 4;

/// The rotation constants repeat after so many rounds.
inline constexpr std::size_t kRotationPeriod = 8;

/// XORed with all key words it gives the parity word (C240 in the paper, version 1.3).
inline constexpr std::uint64_t kKeyParity = 0x1BD11BDAA9FC1A22;

/// What differs between the sizes of Threefish, as published with version 1.3 of Skein: the number of rounds,
/// the rotation of the second word of each pair by round, and the word permutation (after each round, place i
/// receives the word of place kPermutation[i]).
template <std::size_t kWords>
struct Threefish;

template <>
struct Threefish<4>
{
    static constexpr std::size_t kRounds = 72;
    static constexpr std::array<std::size_t, 4> kPermutation{0, 3, 2, 1};
    static constexpr std::array<std::array<int, 2>, kRotationPeriod> kRotations{{
        {14, 16},
        {52, 57},
        {23, 40},
        {5, 37},
        {25, 33},
        {46, 12},
        {58, 22},
        {32, 32},
    }};
};

template <>
struct Threefish<8>
{
    static constexpr std::size_t kRounds = 72;
    static constexpr std::array<std::size_t, 8> kPermutation{2, 1, 4, 7, 6, 5, 0, 3};
    static constexpr std::array<std::array<int, 4>, kRotationPeriod> kRotations{{
        {46, 36, 19, 37},
        {33, 27, 14, 42},
        {17, 49, 36, 39},
        {44, 9, 54, 56},
        {39, 30, 34, 24},
        {13, 50, 10, 17},
        {25, 29, 39, 43},
        {8, 35, 56, 22},
    }};
};

template <>
struct Threefish<16>
{
    static constexpr std::size_t kRounds = 80;
    static constexpr std::array<std::size_t, 16> kPermutation{0,  9, 2,  13, 6,  11, 4, 15,
                                                              10, 7, 12, 3,  14, 5,  8, 1};
    static constexpr std::array<std::array<int, 8>, kRotationPeriod> kRotations{{
        {24, 13, 8, 47, 8, 17, 22, 37},
        {38, 19, 10, 55, 49, 18, 23, 52},
        {33, 4, 51, 13, 34, 41, 59, 17},
        {5, 20, 48, 41, 47, 28, 16, 25},
        {41, 9, 37, 31, 12, 47, 44, 30},
        {16, 34, 56, 51, 4, 53, 42, 41},
        {31, 44, 47, 46, 19, 42, 44, 25},
        {9, 48, 35, 52, 23, 31, 37, 20},
    }};
};

/// For each round of a group of four, which word stands at which place. The permutation is applied to these
/// indices instead of to the words; after four rounds every word is back at its own place.
template <std::size_t kWords>
using WordPlaces = std::array<std::array<std::size_t, kWords>, kRoundsPerSubkey + 1>;

template <std::size_t kWords>
constexpr WordPlaces<kWords> wordPlaces() noexcept
{
    WordPlaces<kWords> places{};
    for (std::size_t i = 0; i < kWords; ++i)
        places[0][i] = i;
    for (std::size_t round = 0; round < kRoundsPerSubkey; ++round) {
        for (std::size_t i = 0; i < kWords; ++i)
            places[round + 1][i] = places[round][Threefish<kWords>::kPermutation[i]];
    }
    return places;
}

template <std::size_t kWords>
inline constexpr WordPlaces<kWords> kWordPlaces = wordPlaces<kWords>();

static_assert(kWordPlaces<4>.front() == kWordPlaces<4>.back());
static_assert(kWordPlaces<8>.front() == kWordPlaces<8>.back());
static_assert(kWordPlaces<16>.front() == kWordPlaces<16>.back());

/// Two pairs of one round whose four words the next round pairs among themselves: these two rounds can be run
/// for the four words alone.
struct Quad
{
    std::array<std::size_t, 2> pairs;
    std::array<std::size_t, 2> nextPairs;
};

/// The pair that `word` belongs to in `round` of a group of four.
template <std::size_t kWords>
constexpr std::size_t pairOfWord(std::size_t round, std::size_t word) noexcept
{
    std::size_t place = 0;
    while (kWordPlaces<kWords>[round][place] != word)
        ++place;
    return place / 2;
}

/// The quads that the pairs of `round` and of the round after it form.
template <std::size_t kWords>
constexpr std::array<Quad, kWords / 4> quadsOfRound(std::size_t round) noexcept
{
    std::array<Quad, kWords / 4> quads{};
    std::array<bool, kWords / 2> taken{};
    std::size_t count = 0;
    for (std::size_t pair = 0; pair < kWords / 2; ++pair) {
        if (taken[pair])
            continue;
        const auto& words = kWordPlaces<kWords>[round];
        const std::size_t nextPair = pairOfWord<kWords>(round + 1, words[2 * pair]);
        const std::size_t partner =
            pairOfWord<kWords>(round, kWordPlaces<kWords>[round + 1][2 * nextPair + 1]);
        taken[partner] = true;
        quads[count++] = {{pair, partner}, {nextPair, pairOfWord<kWords>(round + 1, words[2 * pair + 1])}};
    }
    return quads;
}

} // namespace quillon::skein::internal
