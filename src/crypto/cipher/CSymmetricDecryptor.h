#pragma once

#include "crypto/ISymmetricDecryptor.h"
#include "crypto/ISymmetricDecryptorEngine.h"
#include "crypto/cipher/CSymmetricCipher.h"

#include <concepts>
#include <cstdint>

namespace quillon::crypto::internal {

/// The ISymmetricDecryptor of an engine.
template <std::derived_from<ISymmetricDecryptorEngine> Engine>
class CSymmetricDecryptor final : public CSymmetricCipher<ISymmetricDecryptor, Engine>
{
    using Base = CSymmetricCipher<ISymmetricDecryptor, Engine>;

public:
    using Base::Base;
    using typename ISymmetricDecryptor::Bytes;
    using typename ISymmetricDecryptor::Input;
    using typename ISymmetricDecryptor::Output;

    HashResult decrypt(Input* input, Output* output, const Bytes& key, IHashCallback* callback,
                       void* userData) override
    {
        return decrypt(input, output, key, Base::zeroIv(), callback, userData);
    }

    HashResult decrypt(Input* input, Output* output, const Bytes& key, const Bytes& iv,
                       IHashCallback* callback, void* userData) override
    {
        return decrypt(input, output, key, iv, kDefaultBufferBytes, kDefaultProgressIntervalMs, callback,
                       userData);
    }

    HashResult decrypt(Input* input, Output* output, const Bytes& key, const Bytes& iv,
                       std::int32_t bufferBytes, std::uint32_t intervalMs, IHashCallback* callback,
                       void* userData) override
    {
        const CipherJob job{input, output, key, iv, bufferBytes, intervalMs, callback, userData};
        return decryptStream(Base::m_engine, Base::m_state, job);
    }

    HashResult decrypt(Input* input, Output* output, const char* password, IHashCallback* callback,
                       void* userData) override
    {
        return decrypt(input, output, password, Base::keyHash(), callback, userData);
    }

    HashResult decrypt(Input* input, Output* output, const char* password, std::uint32_t hashAlgorithmId,
                       IHashCallback* callback, void* userData) override
    {
        return decrypt(input, output, password, hashAlgorithmId, Base::zeroIv(), kDefaultBufferBytes,
                       kDefaultProgressIntervalMs, callback, userData);
    }

    HashResult decrypt(Input* input, Output* output, const char* password, std::uint32_t hashAlgorithmId,
                       const Bytes& iv, std::int32_t bufferBytes, std::uint32_t intervalMs,
                       IHashCallback* callback, void* userData) override
    {
        return Base::withKeyOf(password, hashAlgorithmId, [&](const Bytes& key) {
            return decrypt(input, output, key, iv, bufferBytes, intervalMs, callback, userData);
        });
    }
};

} // namespace quillon::crypto::internal
