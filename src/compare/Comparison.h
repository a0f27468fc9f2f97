#pragma once

#include "compare/ExpectedValue.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quillon::compare {

/// A digest of our own.
struct CalculatedValue
{
    std::string fileName;        ///< with its folders, UTF-8
    std::uint32_t algorithm = 0; ///< its number in the catalogue
    std::string digits;          ///< hexadecimal, upper case
};

/// What a comparison comes to, the first that fits.
enum class Answer
{
    Unread,         ///< there is no value
    NotListed,      ///< several values, none of them beside our file's name or equal to ours
    Contradictory,  ///< different values beside our file's name
    OtherAlgorithm, ///< the value is for another algorithm, which it names
    Equal,
    Beginning,   ///< only the first digits of ours were given
    OtherLength, ///< another algorithm gives digests of this length
    Different,
};

struct Comparison
{
    Answer answer = Answer::Unread;
    ExpectedValue value;                   ///< the one that counts; empty where there is none
    std::string lines;                     ///< of the text, which say what counts; empty where nothing does
    std::vector<std::uint32_t> algorithms; ///< that the value may be of, the likeliest one first
    bool isOfOtherName = false;            ///< the value stands in a list beside another name than our file's
};

/// Compares with the one of `values` that counts: where several are given, that beside the name of our file,
/// for which the longest agreeing end of the path decides, and else one that is equal. Takes time in
/// proportion to the values. Any thread.
[[nodiscard]] Comparison compareWith(const ExpectedValues& values, const CalculatedValue& ours);

} // namespace quillon::compare
