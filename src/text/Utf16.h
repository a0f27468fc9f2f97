#pragma once

#include <string>

namespace quillon::text {

/// Appends a unit of UTF-16 to wide text: as it is, or, where wchar_t has room for whole characters, as the
/// second half of the one before.
inline void appendUtf16Unit(std::wstring& wide, wchar_t unit)
{
    if constexpr (sizeof(wchar_t) > sizeof(char16_t)) {
        const bool isLow = unit >= 0xDC00 && unit <= 0xDFFF;
        if (isLow && !wide.empty() && wide.back() >= 0xD800 && wide.back() <= 0xDBFF) {
            wide.back() = static_cast<wchar_t>(0x10000 + ((wide.back() - 0xD800) << 10) + (unit - 0xDC00));
            return;
        }
    }
    wide += unit;
}

} // namespace quillon::text
