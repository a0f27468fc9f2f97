#pragma once

#include "crypto/skein/Threefish.h"

#include <array>
#include <cstddef>

namespace quillon::skein::internal {

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
