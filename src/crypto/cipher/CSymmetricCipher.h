#pragma once

#include "crypto/IHash.h"
#include "crypto/ISymmetricCipher.h"
#include "crypto/ISymmetricEngine.h"
#include "crypto/cipher/CipherDriver.h"
#include "crypto/cipher/PasswordKey.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace quillon::crypto::internal {

/// What an encryptor and a decryptor have in common: the engine, the state of the runs, and the ways to a key
/// and an IV. The work itself is in CipherDriver, which is compiled once for all engines.
template <class Interface, std::derived_from<ISymmetricEngine> Engine>
class CSymmetricCipher : public Interface
{
public:
    /// `engineArguments` go to the engine's constructor.
    template <class... Arguments>
    explicit CSymmetricCipher(Arguments&&... engineArguments)
        : m_engine(std::forward<Arguments>(engineArguments)...)
    {
    }
    CSymmetricCipher(const CSymmetricCipher&) = delete;
    CSymmetricCipher& operator=(const CSymmetricCipher&) = delete;

    [[nodiscard]] std::uint32_t getLibraryId() const final { return m_engine.getLibraryId(); }
    [[nodiscard]] std::uint32_t getAlgorithmId() const final { return m_engine.getAlgorithmId(); }
    [[nodiscard]] std::int32_t getKeySize() const final { return m_engine.getKeySize(); }
    [[nodiscard]] std::int32_t getIvSize() const final { return m_engine.getIvSize(); }
    [[nodiscard]] bool isRunning() const final { return m_state.running.get(); }
    [[nodiscard]] float getProgress() const final { return m_state.progress.get(); }
    void stop() final { m_state.stopRequested.set(true); }

protected:
    [[nodiscard]] std::vector<char> zeroIv() const
    {
        return std::vector<char>(static_cast<std::size_t>(getIvSize()));
    }

    [[nodiscard]] std::uint32_t keyHash() const { return hashForKeySize(getKeySize()); }

    /// Calls `run` with the key of `password`.
    template <class Run>
    HashResult withKeyOf(const char* password, std::uint32_t hashAlgorithmId, Run run)
    {
        std::vector<char> key;
        const HashResult derived = keyFromPassword(password, hashAlgorithmId, getKeySize(), key);
        return succeeded(derived) ? run(key) : derived;
    }

    Engine m_engine;
    RunState m_state;
};

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
