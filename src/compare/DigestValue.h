#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillon::compare {

/// The least number of hexadecimal digits that are taken for a digest, or for the beginning of one.
inline constexpr std::size_t kLeastDigits = 8;

/// Whether a digest of the catalogue has so many hexadecimal digits.
[[nodiscard]] bool isDigestLength(std::size_t digits) noexcept;

/// The hexadecimal digits of `text` in upper case, where it consists of at least kLeastDigits of them, with
/// blanks, colons, hyphens, line breaks and one "0x" around and between them; empty for any other text.
[[nodiscard]] std::string hexDigitsOf(std::string_view text);

/// The same for a text in Base64 (RFC 4648, sections 4 and 5), with or without padding and with line breaks
/// anywhere; empty where it is not the Base64 of a digest of 16 bytes or more. Blanks within it are refused,
/// since the letters of many a sentence would do.
[[nodiscard]] std::string digitsOfBase64(std::string_view text);

/// The digits of a value in either form. Text that consists of hexadecimal digits is hexadecimal.
[[nodiscard]] std::string digitsOf(std::string_view text);

} // namespace quillon::compare
