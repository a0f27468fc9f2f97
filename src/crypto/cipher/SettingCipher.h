#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Hides a setting such as a password from a passing look. The key stands in the program, so whoever has the
/// program can read the setting. Any thread.
namespace quillon::crypto {

/// The enciphered container of `plain` as hexadecimal text with capital letters, another one at each call.
/// Nothing for an empty text, and where enciphering fails.
[[nodiscard]] std::optional<std::string> encipherSetting(std::string_view plain);

/// The text whose container `hexText` spells; white space between the digits does not count. Nothing where
/// `hexText` is no container of ours, as a plain text is not.
[[nodiscard]] std::optional<std::string> decipherSetting(std::string_view hexText);

} // namespace quillon::crypto
