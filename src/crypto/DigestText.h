#pragma once

#include <span>
#include <string>

namespace thisapp {

/// Which text of a digest goes to the clipboard at the end of a run. The numbers are stored in settings.
enum EDigestCopy : int
{
    kCopyNothing = 1,
    kCopyHex = 2,
    kCopyBase64 = 4
};

} // namespace thisapp

namespace quillon::crypto {

/// `bytes` in hexadecimal, two of the digits 0 to 9 and A to F a byte, high digit first, nothing between
/// them. Char is char or wchar_t. Empty for an empty span or a null pointer.
template <class Char = char>
[[nodiscard]] std::basic_string<Char> bytesToHex(std::span<const char> bytes);

/// `bytes` in Base64: the standard alphabet with '=' padding, no line breaks (RFC 4648, section 4). Empty for
/// an empty span or a null pointer.
[[nodiscard]] std::string bytesToBase64(std::span<const char> bytes);

} // namespace quillon::crypto
