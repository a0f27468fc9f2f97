#pragma once

#include "crypto/HashDriver.h"
#include "crypto/IHash.h"
#include "crypto/IHashEngine.h"

#include <concepts>
#include <cstdint>
#include <string>
#include <utility>

namespace quillon::crypto::internal {

/// An engine and the state of its runs. The work itself is in HashDriver, which is compiled once for all
/// engines.
template <std::derived_from<IHashEngine> Engine>
class HashCalculator final : public IHash
{
public:
    /// `engineArguments` go to the engine's constructor.
    template <class... Arguments>
    explicit HashCalculator(Arguments&&... engineArguments)
        : m_engine(std::forward<Arguments>(engineArguments)...)
        , m_state(m_engine.getDigestSize())
    {
    }

    HashCalculator(const HashCalculator&) = delete;
    HashCalculator& operator=(const HashCalculator&) = delete;

    [[nodiscard]] std::uint32_t getLibraryId() const override { return m_engine.getLibraryId(); }
    [[nodiscard]] std::uint32_t getAlgorithmId() const override { return m_engine.getAlgorithmId(); }
    [[nodiscard]] std::int32_t getDigestSize() const override { return m_engine.getDigestSize(); }
    [[nodiscard]] bool isRunning() const override { return m_state.running.get(); }
    [[nodiscard]] float getProgress() const override { return m_state.progress.get(); }

    HashResult calculate(Stream* stream) override { return calculateDigest(m_engine, m_state, stream, {}); }

    HashResult calculate(Stream* stream, IHashCallback* callback) override
    {
        return calculateDigest(m_engine, m_state, stream, {.callback = callback});
    }

    HashResult calculate(Stream* stream, std::int32_t bufferBytes, std::uint32_t intervalMs,
                         IHashCallback* callback) override
    {
        return calculateDigest(m_engine, m_state, stream, {bufferBytes, intervalMs, callback, nullptr});
    }

    HashResult calculate(Stream* stream, std::int32_t bufferBytes, std::uint32_t intervalMs,
                         IHashCallback* callback, void* userData) override
    {
        return calculateDigest(m_engine, m_state, stream, {bufferBytes, intervalMs, callback, userData});
    }

    void stop() override { m_state.stopRequested.set(true); }

    HashResult getDigest(void* output, std::int32_t size) const override
    {
        return copyDigest(m_state, getDigestSize(), output, size);
    }

    HashResult getDigestHex(std::wstring& text) const override { return digestToHex(m_state, text); }
    HashResult getDigestHex(std::string& text) const override { return digestToHex(m_state, text); }

private:
    Engine m_engine;
    HashState m_state;
};

} // namespace quillon::crypto::internal
