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

} // namespace quillon::skein::internal
