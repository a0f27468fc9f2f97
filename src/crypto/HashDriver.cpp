#include "crypto/HashDriver.h"

#include "crypto/DigestText.h"
#include "platform/Clock.h"
#include "sync/ScopeExit.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <thread>
#include <utility>
#include <vector>

namespace quillon::crypto::internal {
namespace {

// A file that was cut short may have its bytes back at any time. Asking without a pause would cost a whole
// core.
constexpr std::chrono::milliseconds kPauseWithoutBytes{5};

/// One run from the first flag to the last.
class HashRun
{
public:
    HashRun(IHashEngine& engine, HashState& state, IHash::Stream& stream,
            const HashRunOptions& options) noexcept
        : m_engine(engine)
        , m_state(state)
        , m_stream(stream)
        , m_options(options)
        , m_throttle(options.intervalMs)
    {
    }

    HashResult run();

private:
    void enterRunning();
    HashResult digestStream();
    HashResult digestEmptyMessage();
    HashResult absorbAll(std::int64_t size);
    HashResult absorbChunk(char* buffer, std::int32_t chunk, std::int64_t& total);
    void reportProgress(std::int64_t total, std::int64_t size);
    HashResult finishMessage();
    HashResult storeDigest();

    [[nodiscard]] std::vector<char> zeroDigest() const
    {
        return std::vector<char>(static_cast<std::size_t>(m_engine.getDigestSize()));
    }

    IHashEngine& m_engine;
    HashState& m_state;
    IHash::Stream& m_stream;
    const HashRunOptions& m_options;
    ProgressThrottle m_throttle;
};

HashResult HashRun::run()
{
    enterRunning();
    if (m_options.callback != nullptr)
        m_options.callback->onHashStarted(m_options.userData);
    const HashResult result = digestStream();
    if (m_options.callback != nullptr)
        m_options.callback->onHashFinished(m_state.stopRequested.get(), result, m_options.userData);
    // Not in a destructor: where memory ran out the engine is in the middle of a message, and the flag keeps
    // the calculator from being used again.
    m_state.running.set(false);
    return result;
}

void HashRun::enterRunning()
{
    m_state.stopRequested.set(false);
    m_state.running.set(true);
    m_state.progress.set(0.0F);
    m_state.digest.set(zeroDigest());
}

HashResult HashRun::digestStream()
{
    const std::int64_t size = m_stream.size();
    const sync::ScopeExit release([this] { m_engine.release(); });
    if (const HashResult started = m_engine.init(); !succeeded(started))
        return started;
    if (size <= 0)
        return digestEmptyMessage();
    const HashResult absorbed = absorbAll(size);
    return succeeded(absorbed) ? finishMessage() : absorbed;
}

HashResult HashRun::digestEmptyMessage()
{
    if (const HashResult absorbed = m_engine.update(nullptr, 0); !succeeded(absorbed))
        return absorbed;
    // For the empty message the digest's own result decides, so that of `final` is not looked at.
    static_cast<void>(m_engine.final());
    return storeDigest();
}

HashResult HashRun::absorbAll(std::int64_t size)
{
    const ReadBuffer buffer(static_cast<std::size_t>(m_options.bufferBytes));
    std::int64_t total = 0;
    while (total < size) {
        if (m_state.stopRequested.get())
            return hashError(err::kHashStopped);
        const std::int64_t chunk = std::min<std::int64_t>(m_options.bufferBytes, size - total);
        const HashResult absorbed = absorbChunk(buffer.data(), static_cast<std::int32_t>(chunk), total);
        if (!succeeded(absorbed))
            return absorbed;
        reportProgress(total, size);
    }
    return {};
}

HashResult HashRun::absorbChunk(char* buffer, std::int32_t chunk, std::int64_t& total)
{
    unsigned bytesRead = 0;
    if (!m_stream.read(buffer, chunk, &bytesRead))
        return {m_stream.lastError(), err::programError(err::kStreamReadFailed)};
    if (bytesRead == 0)
        std::this_thread::sleep_for(kPauseWithoutBytes);
    const HashResult absorbed = m_engine.update(buffer, static_cast<std::int32_t>(bytesRead));
    if (succeeded(absorbed))
        total += bytesRead;
    return absorbed;
}

void HashRun::reportProgress(std::int64_t total, std::int64_t size)
{
    if (m_options.callback == nullptr || !m_throttle.isDue(platform::tickCountMs()))
        return;
    const float percent = static_cast<float>(total) * 100.0F / static_cast<float>(size);
    m_options.callback->onHashProgress(total, percent, m_options.userData);
}

HashResult HashRun::finishMessage()
{
    if (const HashResult finished = m_engine.final(); !succeeded(finished))
        return finished;
    return storeDigest();
}

HashResult HashRun::storeDigest()
{
    std::vector<char> digest = zeroDigest();
    const HashResult result = m_engine.getDigest(digest.data(), static_cast<std::int32_t>(digest.size()));
    if (succeeded(result))
        m_state.digest.set(std::move(digest));
    return result;
}

} // namespace

HashResult calculateDigest(IHashEngine& engine, HashState& state, IHash::Stream* stream,
                           const HashRunOptions& options)
{
    if (stream == nullptr || options.bufferBytes < 1)
        return hashError(err::kInvalidArgument);
    if (state.running.get())
        return hashError(err::kAlreadyRunning);
    return HashRun(engine, state, *stream, options).run();
}

HashResult copyDigest(const HashState& state, std::int32_t digestBytes, void* output, std::int32_t size)
{
    if (output == nullptr)
        return hashError(err::kNullPointer);
    if (size < digestBytes)
        return hashError(err::kBufferTooSmall);
    if (state.running.get())
        return hashError(err::kAlreadyRunning);
    const std::vector<char> digest = state.digest.get();
    std::memcpy(output, digest.data(), digest.size());
    return {};
}

template <class Char>
HashResult digestToHex(const HashState& state, std::basic_string<Char>& text)
{
    if (state.running.get())
        return hashError(err::kAlreadyRunning);
    text = bytesToHex<Char>(state.digest.get());
    return {};
}

template HashResult digestToHex(const HashState& state, std::string& text);
template HashResult digestToHex(const HashState& state, std::wstring& text);

} // namespace quillon::crypto::internal
