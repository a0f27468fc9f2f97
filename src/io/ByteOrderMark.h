#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace quillon::io {

/// The byte order mark at the head of a text file, and the encoding that it stands for.
enum class EBomKind : std::int32_t
{
    None = 0,
    Utf8 = 1,
    Utf16BigEndian = 20,
    Utf16LittleEndian = 21,
    Utf32BigEndian = 40,
    Utf32LittleEndian = 41,
};

/// A kind of mark and the bytes that it consists of.
struct ByteOrderMark
{
    EBomKind kind;
    std::string_view bytes;
};

inline constexpr std::size_t kLongestMarkBytes = 4;

/// All marks, the longer one first where one begins like another.
inline constexpr std::array<ByteOrderMark, 5> kByteOrderMarks{{
    {EBomKind::Utf32BigEndian, {"\0\0\xFE\xFF", 4}},
    {EBomKind::Utf32LittleEndian, {"\xFF\xFE\0\0", 4}},
    {EBomKind::Utf8, {"\xEF\xBB\xBF", 3}},
    {EBomKind::Utf16BigEndian, {"\xFE\xFF", 2}},
    {EBomKind::Utf16LittleEndian, {"\xFF\xFE", 2}},
}};

/// The length of a mark in bytes; 0 for none.
[[nodiscard]] constexpr std::int64_t bomLength(EBomKind kind) noexcept
{
    const auto* const mark = std::ranges::find(kByteOrderMarks, kind, &ByteOrderMark::kind);
    return mark == kByteOrderMarks.end() ? 0 : static_cast<std::int64_t>(mark->bytes.size());
}

} // namespace quillon::io
