#pragma once

#include "text/AsciiText.h"

#include <algorithm>
#include <string_view>

namespace quillon::i18n::internal {

/// Orders names by their bytes, the letters A to Z taken as their small forms. A null text comes before all
/// others. Maps with this order can be searched without making a std::string.
struct ItemNameCmp
{
    using is_transparent = void;

    [[nodiscard]] constexpr bool operator()(std::string_view a, std::string_view b) const noexcept
    {
        if (a.data() == nullptr || b.data() == nullptr)
            return a.data() == nullptr && b.data() != nullptr;
        const auto [restOfA, restOfB] = std::ranges::mismatch(a, b, {}, lowerByte, lowerByte);
        return restOfB != b.end() && (restOfA == a.end() || lowerByte(*restOfA) < lowerByte(*restOfB));
    }

    [[nodiscard]] constexpr bool operator()(const char* a, const char* b) const noexcept
    {
        return (*this)(viewOf(a), viewOf(b));
    }

private:
    static constexpr unsigned char lowerByte(char c) noexcept
    {
        return static_cast<unsigned char>(text::toAsciiLower(c));
    }

    static constexpr std::string_view viewOf(const char* text) noexcept
    {
        return text == nullptr ? std::string_view() : std::string_view(text);
    }
};

} // namespace quillon::i18n::internal
