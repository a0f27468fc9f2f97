#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

namespace quillon::compare {

/// A digest that somebody has given, as it was read from a text.
struct ExpectedValue
{
    std::string digits;          ///< hexadecimal, upper case; at least eight
    std::string algorithmName;   ///< as the text has it; empty where it names none
    std::uint32_t algorithm = 0; ///< its number in the catalogue; 0 where that does not have it
    std::string fileName;        ///< that it stands beside, with its folders; empty where it stands alone
    std::string lines;           ///< of the text, which say all this
};

/// A deque, as a long list would be copied again and again in a vector that grows.
using ExpectedValues = std::deque<ExpectedValue>;

/// All digests in `text`, which is what a user pastes, types or opens: single values, values behind the name
/// of an algorithm, and lists as the usual tools write them, which docs/user-guide.md names. Takes time in
/// proportion to the text, of which no more than 2 MiB are read. Any thread.
[[nodiscard]] ExpectedValues readExpectedValues(std::string_view text);

} // namespace quillon::compare
