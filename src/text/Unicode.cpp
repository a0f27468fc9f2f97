#include "text/Unicode.h"

#include <cstddef>
#include <cstdint>

namespace quillon::text {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kLastCodePoint = 0x10FFFF;
constexpr bool kWideIsUtf16 = sizeof(wchar_t) == 2;

struct Decoded
{
    char32_t codePoint;
    std::size_t length;
};

constexpr Decoded kInvalidByte{kReplacement, 1};

/// How many bytes the sequence that starts with `lead` has; 0 where no sequence starts so.
constexpr std::size_t sequenceLength(unsigned char lead) noexcept
{
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead <= 0xDF)
        return 2;
    if (lead >= 0xE0 && lead <= 0xEF)
        return 3;
    return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

constexpr bool isSurrogate(char32_t value) noexcept
{
    return value >= 0xD800 && value <= 0xDFFF;
}

/// True where `value` could have been written with fewer than `length` bytes, or is no character at all.
constexpr bool isForbidden(char32_t value, std::size_t length) noexcept
{
    constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    return value < kSmallest[length] || value > kLastCodePoint || isSurrogate(value);
}

Decoded decodeUtf8(std::string_view text) noexcept
{
    const auto lead = static_cast<unsigned char>(text[0]);
    const std::size_t length = sequenceLength(lead);
    if (length == 1)
        return {lead, 1};
    if (length == 0 || length > text.size())
        return kInvalidByte;
    char32_t value = lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(text[i]);
        if ((next & 0xC0) != 0x80)
            return kInvalidByte;
        value = (value << 6) | (next & 0x3FU);
    }
    return isForbidden(value, length) ? kInvalidByte : Decoded{value, length};
}

Decoded decodeWide(std::wstring_view text) noexcept
{
    const auto first = static_cast<char32_t>(text[0]);
    if (kWideIsUtf16 && first >= 0xD800 && first <= 0xDBFF && text.size() > 1) {
        const auto second = static_cast<char32_t>(text[1]);
        if (second >= 0xDC00 && second <= 0xDFFF)
            return {0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00), 2};
    }
    return isSurrogate(first) || first > kLastCodePoint ? kInvalidByte : Decoded{first, 1};
}

void appendWide(std::wstring& out, char32_t value)
{
    if (kWideIsUtf16 && value > 0xFFFF) {
        out += static_cast<wchar_t>(0xD800 + ((value - 0x10000) >> 10));
        out += static_cast<wchar_t>(0xDC00 + ((value - 0x10000) & 0x3FF));
    } else {
        out += static_cast<wchar_t>(value);
    }
}

void appendUtf8(std::string& out, char32_t value)
{
    const auto tail = [value](int shift) { return static_cast<char>(0x80 | ((value >> shift) & 0x3F)); };
    if (value < 0x80) {
        out += static_cast<char>(value);
    } else if (value < 0x800) {
        out += {static_cast<char>(0xC0 | (value >> 6)), tail(0)};
    } else if (value < 0x10000) {
        out += {static_cast<char>(0xE0 | (value >> 12)), tail(6), tail(0)};
    } else {
        out += {static_cast<char>(0xF0 | (value >> 18)), tail(12), tail(6), tail(0)};
    }
}

} // namespace

std::wstring wideFromUtf8(std::string_view utf8)
{
    std::wstring wide;
    wide.reserve(utf8.size());
    while (!utf8.empty()) {
        const Decoded next = decodeUtf8(utf8);
        appendWide(wide, next.codePoint);
        utf8.remove_prefix(next.length);
    }
    return wide;
}

std::string utf8FromWide(std::wstring_view wide)
{
    std::string utf8;
    utf8.reserve(wide.size());
    while (!wide.empty()) {
        const Decoded next = decodeWide(wide);
        appendUtf8(utf8, next.codePoint);
        wide.remove_prefix(next.length);
    }
    return utf8;
}

bool isUtf8(std::string_view text)
{
    return utf8FromWide(wideFromUtf8(text)) == text;
}

} // namespace quillon::text
