#pragma once

#include "crypto/IHash.h"
#include "crypto/ISymmetricEngine.h"
#include "crypto/cipher/CipherDriver.h"
#include "crypto/cipher/PasswordKey.h"
#include "crypto/cipher/SecretBytes.h"

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
        const HashResult result = succeeded(derived) ? run(key) : derived;
        wipe(key);
        return result;
    }

    Engine m_engine;
    CipherState m_state;
};

} // namespace quillon::crypto::internal
