#pragma once

#include <cstdint>

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

} // namespace quillon::io
