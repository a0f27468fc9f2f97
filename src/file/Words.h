#pragma once

#include <string>
#include <string_view>

namespace quillon::file {

/// Removes white space at both ends. Bytes from 128 on are never white space.
void trim(std::string& text);

/// Removes at both ends what iswspace takes for white space.
void trim(std::wstring& text);

/// True when both texts have the same length and characters, the letters A to Z compared without case.
[[nodiscard]] bool equalsIgnoringCase(std::wstring_view a, std::wstring_view b) noexcept;

/// True where `word` is, without regard to case, one of those that switch something on (`positive`) or off.
/// The words are those that list files in use have; a word of neither list is false both times.
[[nodiscard]] bool isBoolWord(std::wstring_view word, bool positive) noexcept;

} // namespace quillon::file
