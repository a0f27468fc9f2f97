#include "crypto/cipher/SettingCipher.h"

#include "crypto/DigestText.h"
#include "crypto/cipher/CSymmetricCipher.h"
#include "crypto/cryptopp/CSymmetricEngine.h"
#include "io/IStreamBytes.h"
#include "io/IStreamText.h"
#include "text/AsciiText.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace quillon::crypto {
namespace {

constexpr char kPassPhrase[] = "qkz";

/// Starts `stream` on `digits`, which ends in a zero byte; false unless every character is one of a pair of
/// digits or white space.
bool openPairs(io::IStreamHexText<char>& stream, const std::string& digits)
{
    if (!err::succeeded(stream.setText(digits.c_str())))
        return false;
    // The stream leaves a single digit at the end out, and ends at a zero byte.
    const auto characters = std::ranges::count_if(digits, [](char c) { return !text::isAsciiSpace(c); });
    return stream.size() > 0 && std::cmp_equal(characters, stream.size() * 2);
}

} // namespace

std::optional<std::string> encipherSetting(std::string_view plain)
{
    if (plain.empty())
        return std::nullopt;
    io::IStreamBytes input;
    input.setBytes({plain.begin(), plain.end()});
    io::OStreamBytes output;
    internal::CSymmetricEncryptor<cryptopp::internal::BlowfishEncryptorEngine> encryptor;
    if (!succeeded(encryptor.encrypt(&input, &output, kPassPhrase, true, nullptr, nullptr)))
        return std::nullopt;
    return bytesToHex(output.bytes());
}

std::optional<std::string> decipherSetting(std::string_view hexText)
{
    const std::string digits(hexText);
    io::IStreamHexText<char> input;
    if (!openPairs(input, digits))
        return std::nullopt;
    io::OStreamBytes output;
    internal::CSymmetricDecryptor<cryptopp::internal::BlowfishDecryptorEngine> decryptor;
    if (!succeeded(decryptor.decrypt(&input, &output, kPassPhrase, nullptr, nullptr)))
        return std::nullopt;
    const std::vector<char> plain = output.bytes();
    return std::string(plain.begin(), plain.end());
}

} // namespace quillon::crypto
