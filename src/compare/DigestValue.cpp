#include "compare/DigestValue.h"

#include "crypto/HashCatalogue.h"
#include "text/AsciiText.h"

#include <algorithm>

namespace quillon::compare {
namespace {

constexpr std::string_view kHexDigits = "0123456789ABCDEF";
constexpr std::size_t kLeastBase64Bytes = 16;

/// The six bits of a letter of either alphabet, or -1.
int base64Value(char c)
{
    if (c >= 'A' && c <= 'Z')
        return c - 'A';
    if (c >= 'a' && c <= 'z')
        return c - 'a' + 26;
    if (c >= '0' && c <= '9')
        return c - '0' + 52;
    if (c == '+' || c == '-')
        return 62;
    return c == '/' || c == '_' ? 63 : -1;
}

/// The bits of a Base64 text one after the other, as hexadecimal digits; bits that fill no digit are left
/// out.
class Base64Digits
{
public:
    /// False for what is no letter of the alphabet.
    bool take(char c)
    {
        const int value = base64Value(c);
        if (value < 0)
            return false;
        m_bits = (m_bits << 6U | static_cast<unsigned>(value)) & 0xFFFU;
        for (m_bitCount += 6; m_bitCount >= 4; m_bitCount -= 4)
            m_digits += kHexDigits[(m_bits >> (m_bitCount - 4)) & 0xFU];
        ++m_letters;
        return true;
    }

    /// Empty where the letters stand for no whole number of bytes.
    [[nodiscard]] std::string digits(std::size_t padding) const
    {
        const std::size_t bytes = m_letters * 6 / 8;
        const std::size_t surplus = m_letters * 6 - bytes * 8;
        const bool isPadded = padding == 0 || (padding < 3 && (m_letters + padding) % 4 == 0);
        const bool hasRest = (m_bits & ((1U << surplus) - 1)) != 0;
        return surplus < 6 && isPadded && !hasRest ? m_digits.substr(0, bytes * 2) : std::string();
    }

private:
    unsigned m_bits = 0;
    unsigned m_bitCount = 0;
    std::size_t m_letters = 0;
    std::string m_digits;
};

} // namespace

bool isDigestLength(std::size_t digits) noexcept
{
    return std::ranges::any_of(crypto::hashCatalogue(), [digits](const crypto::HashAlgorithm& row) {
        return static_cast<std::size_t>(row.digestBytes) * 2 == digits;
    });
}

std::string hexDigitsOf(std::string_view text)
{
    text = text::trimAscii(text);
    if (text.starts_with("0x") || text.starts_with("0X"))
        text.remove_prefix(2);
    std::string digits;
    for (const char c : text) {
        if (const int value = text::hexDigitValue(c); value >= 0)
            digits += kHexDigits[static_cast<std::size_t>(value)];
        else if (!text::isAsciiSpace(c) && c != ':' && c != '-')
            return {};
    }
    return digits.size() >= kLeastDigits ? digits : std::string();
}

std::string digitsOfBase64(std::string_view text)
{
    Base64Digits reader;
    std::size_t padding = 0;
    for (const char c : text::trimAscii(text)) {
        if (c == '\r' || c == '\n')
            continue;
        if (c == '=')
            ++padding;
        else if (padding > 0 || !reader.take(c))
            return {};
    }
    std::string digits = reader.digits(padding);
    return digits.size() >= kLeastBase64Bytes * 2 && isDigestLength(digits.size()) ? digits : std::string();
}

std::string digitsOf(std::string_view text)
{
    std::string digits = hexDigitsOf(text);
    return digits.empty() ? digitsOfBase64(text) : digits;
}

} // namespace quillon::compare
