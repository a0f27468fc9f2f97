#pragma once

#include "crypto/HashResult.h"
#include "crypto/IHash.h"
#include "crypto/IHashEngine.h"
#include "sync/SafeData.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <string>
#include <vector>

namespace quillon::crypto::internal {

/// Lets one report through per interval. All times are 32-bit milliseconds that wrap, so about every 49 days
/// one report may come early.
class ProgressThrottle
{
public:
    explicit constexpr ProgressThrottle(std::uint32_t intervalMs) noexcept
        : m_intervalMs(intervalMs)
    {
    }

    /// Whether a report is due at `tickMs`; if so, the next one is due an interval later. The first one is
    /// due as soon as the tick count has reached the interval.
    [[nodiscard]] constexpr bool isDue(std::uint32_t tickMs) noexcept
    {
        if (tickMs < m_intervalMs + m_lastReportMs)
            return false;
        m_lastReportMs = tickMs;
        return true;
    }

private:
    std::uint32_t m_intervalMs;
    std::uint32_t m_lastReportMs = 0;
};

/// One uninitialised block of the heap that starts on a memory page. The kernel's copy into a block that
/// starts just past a page boundary, as large blocks of the heap do, was measured to take several times as
/// long.
class ReadBuffer
{
public:
    /// Throws std::bad_alloc where memory runs out.
    explicit ReadBuffer(std::size_t bytes)
        : m_data(static_cast<char*>(::operator new(bytes, kPageAlignment)))
    {
    }

    [[nodiscard]] char* data() const noexcept { return m_data.get(); }

private:
    static constexpr std::align_val_t kPageAlignment{4096};

    struct Release
    {
        void operator()(char* block) const noexcept { ::operator delete(block, kPageAlignment); }
    };

    std::unique_ptr<char, Release> m_data;
};

} // namespace quillon::crypto::internal

/// What every calculator does, whatever its engine.
namespace quillon::crypto::internal {

/// What a calculator and a cipher hold beside their engine, each item under a lock of its own.
struct RunState
{
    sync::SafeValue<bool> stopRequested{false};
    sync::SafeValue<bool> running{false};
    sync::SafeValue<float> progress{0.0F};
};

/// The state of a calculator. `digest` always has the size of the engine's digest.
struct HashState : RunState
{
    explicit HashState(std::int32_t digestBytes)
        : digest(std::vector<char>(static_cast<std::size_t>(digestBytes)))
    {
    }

    sync::SafeData<sync::Locker, std::vector<char>> digest;
};

/// How one run is to be done; see IHash::calculate.
struct HashRunOptions
{
    std::int32_t bufferBytes = kDefaultBufferBytes;
    std::uint32_t intervalMs = kDefaultProgressIntervalMs;
    IHashCallback* callback = nullptr;
    void* userData = nullptr;
};

/// IHash::calculate on `engine` and `state`.
HashResult calculateDigest(IHashEngine& engine, HashState& state, IHash::Stream* stream,
                           const HashRunOptions& options);

/// IHash::getDigest on `state`.
HashResult copyDigest(const HashState& state, std::int32_t digestBytes, void* output, std::int32_t size);

/// IHash::getDigestHex on `state`, for char and wchar_t.
template <class Char>
HashResult digestToHex(const HashState& state, std::basic_string<Char>& text);

} // namespace quillon::crypto::internal
