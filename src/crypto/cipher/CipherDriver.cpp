#include "crypto/cipher/CipherDriver.h"

#include "crypto/cipher/CipherHeader.h"
#include "crypto/cipher/PasswordKey.h"
#include "platform/Clock.h"
#include "sync/ScopeExit.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <utility>

namespace quillon::crypto::internal {
namespace {

/// A buffer below this is refused.
constexpr std::int32_t kLeastBufferBytes = 8;

/// One run from the first flag to the last, for both directions.
class CipherRun
{
public:
    CipherRun(ISymmetricEngine& engine, RunState& state, const CipherJob& job) noexcept
        : m_engine(engine)
        , m_state(state)
        , m_job(job)
        , m_chunkBytes(std::max(job.bufferBytes / engine.getBlockSize() * engine.getBlockSize(),
                                roundUpToBlocks(kCipherHeaderBytes)))
    {
    }
    virtual ~CipherRun() = default;
    CipherRun(const CipherRun&) = delete;
    CipherRun& operator=(const CipherRun&) = delete;

    HashResult run();

protected:
    [[nodiscard]] virtual HashResult checkInputSize() const { return {}; }

    /// Passes the chunk with the header, and sets how many bytes the output takes in all.
    virtual HashResult passFirstChunk() = 0;

    HashResult transformChunk(std::span<const char> head);
    HashResult writeTransformed(std::int32_t skippedBytes);
    void limitOutput(std::int64_t bytes) noexcept { m_outputLeft = bytes; }

    [[nodiscard]] std::uint32_t algorithmId() const { return m_engine.getAlgorithmId(); }
    [[nodiscard]] std::int64_t inputBytes() const noexcept { return m_inputBytes; }
    [[nodiscard]] bool isWholeBlocks(std::int64_t bytes) const
    {
        return bytes % m_engine.getBlockSize() == 0;
    }
    [[nodiscard]] std::span<const char> transformed() const noexcept
    {
        return m_output.bytes().first(static_cast<std::size_t>(m_transformedBytes));
    }

private:
    HashResult passStream();
    HashResult beginMessage();
    HashResult passFurtherChunks();
    HashResult fillFromInput(std::span<char> room);
    void reportProgress();

    [[nodiscard]] std::int32_t roundUpToBlocks(std::int32_t bytes) const
    {
        const std::int32_t over = bytes % m_engine.getBlockSize();
        return over == 0 ? bytes : bytes - over + m_engine.getBlockSize();
    }

    ISymmetricEngine& m_engine;
    RunState& m_state;
    const CipherJob& m_job;
    const std::int32_t m_chunkBytes;
    HeapBuffer m_input;
    HeapBuffer m_output;
    std::int64_t m_inputBytes = 0; ///< the size of the input, taken once
    std::int64_t m_inputLeft = 0;
    std::int64_t m_outputLeft = std::numeric_limits<std::int64_t>::max();
    std::int32_t m_transformedBytes = 0;
    std::uint32_t m_lastReportMs = 0;
};

HashResult CipherRun::run()
{
    m_state.stopRequested.set(false);
    m_state.running.set(true);
    const sync::ScopeExit end([this] { m_state.running.set(false); });
    m_state.progress.set(0.0F);
    if (m_job.callback != nullptr)
        m_job.callback->onHashStarted(m_job.userData);
    const HashResult result = passStream();
    if (m_job.callback != nullptr)
        m_job.callback->onHashFinished(m_state.stopRequested.get(), result, m_job.userData);
    return result;
}

HashResult CipherRun::passStream()
{
    const sync::ScopeExit end([this] {
        m_engine.release();
        m_input.free();
        m_output.free();
    });
    m_inputBytes = m_job.input->size();
    m_inputLeft = m_inputBytes;
    if (m_inputBytes <= 0)
        return {};
    if (const HashResult checked = checkInputSize(); !succeeded(checked))
        return checked;
    if (const HashResult begun = beginMessage(); !succeeded(begun))
        return begun;
    if (const HashResult first = passFirstChunk(); !succeeded(first))
        return first;
    return passFurtherChunks();
}

HashResult CipherRun::beginMessage()
{
    const HashResult keyed = m_engine.setKey(m_job.key.data(), static_cast<std::int32_t>(m_job.key.size()),
                                             m_job.iv.data(), static_cast<std::int32_t>(m_job.iv.size()));
    if (!succeeded(keyed))
        return keyed;
    const std::size_t room =
        static_cast<std::size_t>(m_chunkBytes) + static_cast<std::size_t>(m_engine.getExtraSize());
    if (!m_input.allocate(room))
        return hashError(err::kFirstBufferNotAllocated);
    if (!m_output.allocate(room))
        return hashError(err::kSecondBufferNotAllocated);
    return {};
}

HashResult CipherRun::passFurtherChunks()
{
    while (m_inputLeft > 0 && !m_state.stopRequested.get()) {
        if (const HashResult transformed = transformChunk({}); !succeeded(transformed))
            return transformed;
        if (const HashResult written = writeTransformed(0); !succeeded(written))
            return written;
        reportProgress();
    }
    return {};
}

/// Takes `head` and as much of the input as fits behind it, fills up with zero bytes to whole blocks, and
/// passes all that through the engine.
HashResult CipherRun::transformChunk(std::span<const char> head)
{
    const std::span<char> chunk = m_input.bytes();
    std::ranges::fill(chunk, '\0');
    std::ranges::copy(head, chunk.begin());
    const auto headBytes = static_cast<std::int32_t>(head.size());
    const auto readBytes =
        static_cast<std::int32_t>(std::min<std::int64_t>(m_chunkBytes - headBytes, m_inputLeft));
    const HashResult filled = fillFromInput(chunk.subspan(head.size(), static_cast<std::size_t>(readBytes)));
    if (!succeeded(filled))
        return filled;
    const std::size_t outputRoom =
        std::min<std::size_t>(m_output.bytes().size(), std::numeric_limits<std::int32_t>::max());
    return m_engine.process(chunk.data(), roundUpToBlocks(headBytes + readBytes), m_output.bytes().data(),
                            static_cast<std::int32_t>(outputRoom), &m_transformedBytes);
}

/// Fills the whole of `room`: a stream may deliver less than it was asked for, and a gap in the middle of the
/// message would be enciphered as data. One that delivers nothing counts as failed, or it would never end.
HashResult CipherRun::fillFromInput(std::span<char> room)
{
    while (!room.empty()) {
        unsigned bytesRead = 0;
        const bool isRead = m_job.input->read(room.data(), static_cast<int>(room.size()), &bytesRead);
        if (!isRead || bytesRead == 0 || bytesRead > room.size())
            return {err::programError(err::kStreamReadFailed), m_job.input->lastError()};
        room = room.subspan(bytesRead);
        m_inputLeft -= bytesRead;
    }
    return {};
}

/// Writes what the engine has made of the last chunk, without its first `skippedBytes` and without what goes
/// beyond the length of the output.
HashResult CipherRun::writeTransformed(std::int32_t skippedBytes)
{
    std::span<const char> rest = transformed().subspan(static_cast<std::size_t>(skippedBytes));
    rest = rest.first(static_cast<std::size_t>(std::min<std::int64_t>(std::ssize(rest), m_outputLeft)));
    m_outputLeft -= std::ssize(rest);
    while (!rest.empty()) {
        const unsigned taken = m_job.output->write(rest.data(), static_cast<int>(rest.size()));
        if (taken == 0 || taken > rest.size())
            return {err::programError(err::kStreamWriteFailed), m_job.output->lastError()};
        rest = rest.subspan(taken);
    }
    return {};
}

/// ProgressThrottle is not used here: it reports at the interval, this driver only above it.
void CipherRun::reportProgress()
{
    if (m_job.callback == nullptr)
        return;
    const std::uint32_t tickMs = platform::tickCountMs();
    if (tickMs <= m_lastReportMs + m_job.intervalMs || m_state.stopRequested.get())
        return;
    m_lastReportMs = tickMs;
    const std::int64_t total = m_inputBytes - m_inputLeft;
    const float percent = static_cast<float>(total) * 100.0F / static_cast<float>(m_inputBytes);
    m_job.callback->onHashProgress(total, percent, m_job.userData);
}

class EncryptRun final : public CipherRun
{
public:
    EncryptRun(ISymmetricEngine& engine, RunState& state, const CipherJob& job, bool useSalt) noexcept
        : CipherRun(engine, state, job)
        , m_useSalt(useSalt)
    {
    }

protected:
    HashResult passFirstChunk() override
    {
        CipherHeader header;
        const HashResult made = makeCipherHeader(algorithmId(), inputBytes(), m_useSalt, header);
        if (!succeeded(made))
            return made;
        const HashResult enciphered = transformChunk(header);
        return succeeded(enciphered) ? writeTransformed(0) : enciphered;
    }

private:
    bool m_useSalt;
};

class DecryptRun final : public CipherRun
{
public:
    using CipherRun::CipherRun;

protected:
    [[nodiscard]] HashResult checkInputSize() const override
    {
        return inputBytes() < kCipherHeaderBytes ? hashError(err::kCipherTextTooShort) : HashResult{};
    }

    HashResult passFirstChunk() override
    {
        if (const HashResult deciphered = transformChunk({}); !succeeded(deciphered))
            return deciphered;
        std::int64_t plainBytes = 0;
        const HashResult read =
            readCipherHeader(algorithmId(), transformed().first<kCipherHeaderBytes>(), plainBytes);
        if (!succeeded(read))
            return read;
        // The length comes from outside: any 64-bit number, so nothing is added to it.
        if (plainBytes < 0 || plainBytes > inputBytes() - kCipherHeaderBytes || !isWholeBlocks(inputBytes()))
            return hashError(err::kCipherTextCut);
        limitOutput(plainBytes);
        return writeTransformed(kCipherHeaderBytes);
    }
};

HashResult checkJob(const ISymmetricEngine& engine, const RunState& state, const CipherJob& job)
{
    if (job.input == nullptr)
        return hashError(err::kInputStreamNotDefined);
    if (job.output == nullptr)
        return hashError(err::kOutputStreamNotDefined);
    if (job.bufferBytes < kLeastBufferBytes)
        return hashError(err::kBufferSizeTooSmall);
    if (std::cmp_not_equal(job.key.size(), engine.getKeySize()))
        return hashError(err::kKeySizeWrong);
    if (std::cmp_not_equal(job.iv.size(), engine.getIvSize()))
        return hashError(err::kIvSizeWrong);
    if (state.running.get())
        return hashError(err::kAlreadyRunning);
    return {};
}

} // namespace

HashResult encryptStream(ISymmetricEngine& engine, RunState& state, const CipherJob& job, bool useSalt)
{
    const HashResult checked = checkJob(engine, state, job);
    return succeeded(checked) ? EncryptRun(engine, state, job, useSalt).run() : checked;
}

HashResult decryptStream(ISymmetricEngine& engine, RunState& state, const CipherJob& job)
{
    const HashResult checked = checkJob(engine, state, job);
    return succeeded(checked) ? DecryptRun(engine, state, job).run() : checked;
}

} // namespace quillon::crypto::internal
