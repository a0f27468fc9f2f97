#pragma once

#include "crypto/PrintHashResult.h"
#include "crypto/TestDoubles.h"
#include "crypto/cipher/CSymmetricCipher.h"
#include "crypto/cryptopp/CSymmetricEngine.h"
#include "io/IIStream.h"
#include "support/Bytes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace quillon::tests {

using Encryptor = crypto::internal::CSymmetricEncryptor<cryptopp::internal::BlowfishEncryptorEngine>;
using Decryptor = crypto::internal::CSymmetricDecryptor<cryptopp::internal::BlowfishDecryptorEngine>;

inline constexpr std::uint32_t kNever = 0xFFFFFFFF;
inline const std::vector<char> kZeroIv(8);

/// Collects bytes, takes at most `mostPerWrite` a write, and fails once it holds `room` bytes.
class CollectingOutput final : public io::internal::IOStream<char>
{
public:
    std::string bytes;
    unsigned mostPerWrite = UINT32_MAX;
    std::size_t room = SIZE_MAX;

    static constexpr err::ResultCode kError{1, 28};

    unsigned write(const char* buffer, int count) override
    {
        if (bytes.size() >= room)
            return 0;
        const unsigned taken = std::min(static_cast<unsigned>(count), mostPerWrite);
        bytes.append(buffer, taken);
        return taken;
    }

    [[nodiscard]] err::ResultCode lastError() const override { return kError; }
};

/// Calls the form of `encrypt` (without salt) or `decrypt` that takes `arguments`.
template <class Cipher, class... Arguments>
crypto::HashResult pass(Cipher& cipher, crypto::IHashCallback* callback, const Arguments&... arguments)
{
    if constexpr (requires { cipher.encrypt(arguments..., false, callback, nullptr); })
        return cipher.encrypt(arguments..., false, callback, nullptr);
    else
        return cipher.decrypt(arguments..., callback, nullptr);
}

struct Passed
{
    crypto::HashResult result;
    std::string bytes;
};

/// `bytes` through a new `Cipher` with the given password.
template <class Cipher>
Passed passed(const std::string& bytes, const char* password = "qkz", const std::vector<char>& iv = kZeroIv,
              std::int32_t bufferBytes = 32768)
{
    Cipher cipher;
    MemoryStream input(bytes);
    CollectingOutput output;
    const crypto::HashResult result =
        pass(cipher, nullptr, &input, &output, password, 23U, iv, bufferBytes, kNever);
    EXPECT_FALSE(cipher.isRunning());
    return {result, output.bytes};
}

} // namespace quillon::tests
