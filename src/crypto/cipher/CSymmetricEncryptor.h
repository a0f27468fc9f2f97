#pragma once

#include "crypto/ISymmetricEncryptor.h"
#include "crypto/ISymmetricEncryptorEngine.h"
#include "crypto/cipher/CSymmetricCipher.h"

#include <concepts>
#include <cstdint>

namespace quillon::crypto::internal {

/// The ISymmetricEncryptor of an engine.
template <std::derived_from<ISymmetricEncryptorEngine> Engine>
class CSymmetricEncryptor final : public CSymmetricCipher<ISymmetricEncryptor, Engine>
{
    using Base = CSymmetricCipher<ISymmetricEncryptor, Engine>;

public:
    using Base::Base;
    using typename ISymmetricEncryptor::Bytes;
    using typename ISymmetricEncryptor::Input;
    using typename ISymmetricEncryptor::Output;

    HashResult encrypt(Input* input, Output* output, const Bytes& key, bool useSalt, IHashCallback* callback,
                       void* userData) override
    {
        return encrypt(input, output, key, Base::zeroIv(), useSalt, callback, userData);
    }

    HashResult encrypt(Input* input, Output* output, const Bytes& key, const Bytes& iv, bool useSalt,
                       IHashCallback* callback, void* userData) override
    {
        return encrypt(input, output, key, iv, kDefaultBufferBytes, kDefaultProgressIntervalMs, useSalt,
                       callback, userData);
    }

    HashResult encrypt(Input* input, Output* output, const Bytes& key, const Bytes& iv,
                       std::int32_t bufferBytes, std::uint32_t intervalMs, bool useSalt,
                       IHashCallback* callback, void* userData) override
    {
        const CipherJob job{input, output, key, iv, bufferBytes, intervalMs, callback, userData};
        return encryptStream(Base::m_engine, Base::m_state, job, useSalt);
    }

    HashResult encrypt(Input* input, Output* output, const char* password, bool useSalt,
                       IHashCallback* callback, void* userData) override
    {
        return encrypt(input, output, password, Base::keyHash(), useSalt, callback, userData);
    }

    HashResult encrypt(Input* input, Output* output, const char* password, std::uint32_t hashAlgorithmId,
                       bool useSalt, IHashCallback* callback, void* userData) override
    {
        return encrypt(input, output, password, hashAlgorithmId, Base::zeroIv(), kDefaultBufferBytes,
                       kDefaultProgressIntervalMs, useSalt, callback, userData);
    }

    HashResult encrypt(Input* input, Output* output, const char* password, std::uint32_t hashAlgorithmId,
                       const Bytes& iv, std::int32_t bufferBytes, std::uint32_t intervalMs, bool useSalt,
                       IHashCallback* callback, void* userData) override
    {
        return Base::withKeyOf(password, hashAlgorithmId, [&](const Bytes& key) {
            return encrypt(input, output, key, iv, bufferBytes, intervalMs, useSalt, callback, userData);
        });
    }
};

} // namespace quillon::crypto::internal
