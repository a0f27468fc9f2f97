#include "compare/AlgorithmName.h"

#include "crypto/HashCatalogue.h"
#include "text/AsciiText.h"

#include <algorithm>
#include <array>
#include <string>
#include <unordered_map>
#include <utility>

namespace quillon::compare {
namespace {

constexpr std::size_t kLongestName = 20;

// Names beside those of the catalogue, without the signs that plainName leaves out.
constexpr std::array<std::pair<std::string_view, std::uint32_t>, 18> kOtherNames{{
    {"sha160", 1},
    {"sha2224", 10},
    {"sha2256", 11},
    {"sha2384", 12},
    {"sha2512", 13},
    {"keccak224", 20},
    {"keccak256", 21},
    {"keccak384", 22},
    {"keccak512", 23},
    {"tiger", 30},
    {"rmd128", 50},
    {"rmd160", 51},
    {"ripemd", 51},
    {"rmd256", 52},
    {"rmd320", 53},
    {"whirlpool512", 40},
    {"crc", 401},
    {"adler", 400},
}};

constexpr std::array<std::uint32_t, 7> kByUse{11, 303, 1, 13, 401, 12, 10};

bool isLetterOrDigit(char c)
{
    const char lower = text::toAsciiLower(c);
    return (lower >= 'a' && lower <= 'z') || (c >= '0' && c <= '9');
}

/// Letters and digits in lower case, without hyphens, underscores and blanks between them.
std::string plainName(std::string_view name)
{
    std::string plain;
    for (const char c : text::trimAscii(name)) {
        if (c != '-' && c != '_' && c != ' ')
            plain += text::toAsciiLower(c);
    }
    return plain;
}

const std::unordered_map<std::string, std::uint32_t>& numbersByName()
{
    static const auto kNumbers = [] {
        std::unordered_map<std::string, std::uint32_t> numbers;
        // The library of g++ 14 makes no string of a view when it is given a range.
        for (const auto& [name, number] : kOtherNames)
            numbers.emplace(name, number);
        for (const crypto::HashAlgorithm& row : crypto::hashCatalogue())
            numbers.emplace(plainName(row.name), row.id.alg);
        return numbers;
    }();
    return kNumbers;
}

} // namespace

std::uint32_t algorithmNamed(std::string_view name)
{
    if (name.size() > kLongestName)
        return 0;
    const auto found = numbersByName().find(plainName(name));
    return found == numbersByName().end() ? 0 : found->second;
}

std::size_t algorithmNameLength(std::string_view text)
{
    for (std::size_t length = std::min(text.size(), kLongestName); length > 0; --length) {
        // A dot or a stroke makes it another name, of a file or an algorithm.
        const bool endsWithTheWord =
            length == text.size() || std::string_view(" \t:=-(").find(text[length]) != std::string_view::npos;
        if (endsWithTheWord && isLetterOrDigit(text[length - 1]) &&
            algorithmNamed(text.substr(0, length)) != 0)
            return length;
    }
    return 0;
}

int rankByUse(std::uint32_t algorithm) noexcept
{
    return static_cast<int>(std::ranges::find(kByUse, algorithm) - kByUse.begin());
}

} // namespace quillon::compare
