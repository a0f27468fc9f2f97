#pragma once

#include <algorithm>
#include <string_view>

/// Character tests that look at ASCII only and never at the C locale, so that a program in any language reads
/// the same bytes the same way. Bytes from 128 on are never white space and have no case.
namespace quillon::text {

/// True for blank, tab, line feed, vertical tab, form feed and carriage return.
[[nodiscard]] constexpr bool isAsciiSpace(char c) noexcept
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

[[nodiscard]] constexpr char toAsciiLower(char c) noexcept
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// The value 0 to 15 of a hexadecimal digit of either case, or -1 for any other byte.
[[nodiscard]] constexpr int hexDigitValue(char c) noexcept
{
    if (c >= '0' && c <= '9')
        return c - '0';
    const char lower = toAsciiLower(c);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// `text` without white space at both ends. The view points into the argument.
[[nodiscard]] constexpr std::string_view trimAscii(std::string_view text) noexcept
{
    while (!text.empty() && isAsciiSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isAsciiSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

/// True when both texts have the same length and the same bytes, the letters A to Z compared without case.
[[nodiscard]] constexpr bool equalsIgnoringAsciiCase(std::string_view a, std::string_view b) noexcept
{
    return std::ranges::equal(a, b, {}, toAsciiLower, toAsciiLower);
}

} // namespace quillon::text
