#include "crypto/DigestText.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quillon::crypto {
namespace {

constexpr std::string_view kHexDigits = "0123456789ABCDEF";
constexpr std::string_view kBase64Alphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::size_t kGroupBytes = 3;
constexpr std::size_t kGroupSymbols = 4;

std::uint32_t byteAt(std::span<const char> bytes, std::size_t index) noexcept
{
    return static_cast<unsigned char>(bytes[index]);
}

/// Appends the symbols of up to three bytes; missing ones count as zero and show as padding.
void appendGroup(std::string& text, std::span<const char> group)
{
    std::uint32_t bits = 0;
    for (std::size_t i = 0; i < kGroupBytes; ++i)
        bits = (bits << 8) | (i < group.size() ? byteAt(group, i) : 0);
    for (std::size_t symbol = 0; symbol < kGroupSymbols; ++symbol) {
        const std::uint32_t index = (bits >> (18 - 6 * symbol)) & 0x3F;
        text += symbol <= group.size() ? kBase64Alphabet[index] : '=';
    }
}

} // namespace

template <class Char>
std::basic_string<Char> bytesToHex(std::span<const char> bytes)
{
    std::basic_string<Char> text;
    if (bytes.data() == nullptr)
        return text;
    text.reserve(bytes.size() * 2);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        text += static_cast<Char>(kHexDigits[byteAt(bytes, i) >> 4]);
        text += static_cast<Char>(kHexDigits[byteAt(bytes, i) & 0xF]);
    }
    return text;
}

template std::string bytesToHex(std::span<const char> bytes);
template std::wstring bytesToHex(std::span<const char> bytes);

std::string bytesToBase64(std::span<const char> bytes)
{
    std::string text;
    if (bytes.data() == nullptr)
        return text;
    text.reserve((bytes.size() + kGroupBytes - 1) / kGroupBytes * kGroupSymbols);
    for (std::size_t start = 0; start < bytes.size(); start += kGroupBytes)
        appendGroup(text, bytes.subspan(start, std::min(kGroupBytes, bytes.size() - start)));
    return text;
}

} // namespace quillon::crypto
