#pragma once

#include "crypto/HashCatalogue.h"
#include "crypto/ISymmetricEngine.h"
#include "sync/SafeData.h"

#include <cryptopp/blowfish.h>
#include <cryptopp/modes.h>

#include <concepts>
#include <cstddef>
#include <cstdint>

namespace quillon::cryptopp::internal {

/// `Interface` over a CBC object of Crypto++, which enciphers or deciphers as its type says.
template <std::derived_from<crypto::ISymmetricEngine> Interface, class Cipher, std::uint32_t id,
          std::int32_t keyBytes, std::int32_t blockBytes, std::int32_t ivBytes, std::int32_t extraBytes>
class CSymmetricEngine final : public Interface
{
public:
    [[nodiscard]] std::uint32_t getLibraryId() const override { return crypto::kCryptoppLibraryId; }
    [[nodiscard]] std::uint32_t getAlgorithmId() const override { return id; }
    [[nodiscard]] std::int32_t getKeySize() const override { return keyBytes; }
    [[nodiscard]] std::int32_t getIvSize() const override { return ivBytes; }
    [[nodiscard]] std::int32_t getBlockSize() const override { return blockBytes; }
    [[nodiscard]] std::int32_t getExtraSize() const override { return extraBytes; }
    [[nodiscard]] std::int32_t getLibraryVersion() const override { return crypto::kCryptoppLibraryVersion; }

    crypto::HashResult setKey(const void* key, std::int32_t keyLength, const void* iv,
                              std::int32_t ivLength) override
    {
        if (key == nullptr || iv == nullptr)
            return crypto::hashError(err::kNullPointer);
        if (keyLength != keyBytes)
            return crypto::hashError(err::kKeySizeWrong);
        if (ivLength != ivBytes)
            return crypto::hashError(err::kIvSizeWrong);
        if (m_initialised.get())
            return crypto::hashError(err::kEngineAlreadyInitialised);
        m_cipher.SetKeyWithIV(static_cast<const unsigned char*>(key), keyBytes,
                              static_cast<const unsigned char*>(iv), ivBytes);
        m_initialised.set(true);
        return {};
    }

    void release() override { m_initialised.set(false); }

    [[nodiscard]] bool isInitialised() const override { return m_initialised.get(); }

    crypto::HashResult process(const void* input, std::int32_t inputLength, void* output,
                               std::int32_t outputSize, std::int32_t* processed) override
    {
        if (!m_initialised.get())
            return crypto::hashError(err::kEngineNotInitialised);
        if (input == nullptr || inputLength < 1)
            return {};
        if (output == nullptr || outputSize == 0)
            return crypto::hashError(err::kOutputNotDefined);
        if (outputSize < inputLength)
            return crypto::hashError(err::kOutputTooSmall);
        // Crypto++ only asserts this, and would touch memory behind the buffers.
        if (inputLength % blockBytes != 0)
            return crypto::hashError(err::kEngineUpdateFailed);
        m_cipher.ProcessData(static_cast<unsigned char*>(output), static_cast<const unsigned char*>(input),
                             static_cast<std::size_t>(inputLength));
        if (processed != nullptr)
            *processed = inputLength;
        return {};
    }

    crypto::HashResult finish() override { return {}; }

private:
    Cipher m_cipher;
    sync::SafeValue<bool> m_initialised{false};
};

template <class Cipher, std::uint32_t id, std::int32_t keyBytes, std::int32_t blockBytes,
          std::int32_t ivBytes, std::int32_t extraBytes>
using CSymmetricEncryptorEngine = CSymmetricEngine<crypto::ISymmetricEncryptorEngine, Cipher, id, keyBytes,
                                                   blockBytes, ivBytes, extraBytes>;

/// Blowfish in CBC mode with keys of 448 bits (Schneier, Fast Software Encryption 1993).
using BlowfishEncryptorEngine =
    CSymmetricEncryptorEngine<CryptoPP::CBC_Mode<CryptoPP::Blowfish>::Encryption, 804, 56, 8, 8, 0>;

template <class Cipher, std::uint32_t id, std::int32_t keyBytes, std::int32_t blockBytes,
          std::int32_t ivBytes, std::int32_t extraBytes>
using CSymmetricDecryptorEngine = CSymmetricEngine<crypto::ISymmetricDecryptorEngine, Cipher, id, keyBytes,
                                                   blockBytes, ivBytes, extraBytes>;

/// Blowfish in CBC mode with keys of 448 bits (Schneier, Fast Software Encryption 1993).
using BlowfishDecryptorEngine =
    CSymmetricDecryptorEngine<CryptoPP::CBC_Mode<CryptoPP::Blowfish>::Decryption, 804, 56, 8, 8, 0>;

} // namespace quillon::cryptopp::internal
