#pragma once

#include <string>
#include <string_view>

namespace quillon::text {

/// The wide form of UTF-8 text: UTF-16 where wchar_t has 16 bits, UTF-32 where it has 32. Each byte that does
/// not belong to a well-formed sequence (RFC 3629) becomes U+FFFD. Never fails.
[[nodiscard]] std::wstring wideFromUtf8(std::string_view utf8);

/// The UTF-8 form of wide text. A lone surrogate or a value above U+10FFFF becomes U+FFFD. Never fails.
[[nodiscard]] std::string utf8FromWide(std::wstring_view wide);

/// Whether all of `text` is well-formed UTF-8.
[[nodiscard]] bool isUtf8(std::string_view text);

} // namespace quillon::text
