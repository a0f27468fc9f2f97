#pragma once

#include "crypto/HashResult.h"
#include "crypto/IHash.h"
#include "crypto/IHashEngine.h"
#include "io/IIStream.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace quillon::tests {

using Events = std::vector<std::string>;

/// What a ScriptedEngine answers, and the events it has seen.
struct Script
{
    crypto::HashResult init;
    crypto::HashResult update;
    crypto::HashResult final;
    crypto::HashResult getDigest;
    std::function<void()> onUpdate = [] {};
    Events events;
};

/// An engine whose digest is the number of bytes absorbed, as four bytes, least significant first.
class ScriptedEngine final : public crypto::IHashEngine
{
public:
    static constexpr std::int32_t kDigestBytes = 4;

    explicit ScriptedEngine(Script& script)
        : m_script(script)
    {
    }

    [[nodiscard]] std::uint32_t getLibraryId() const override { return 7; }
    [[nodiscard]] std::uint32_t getAlgorithmId() const override { return 70; }
    [[nodiscard]] std::int32_t getDigestSize() const override { return kDigestBytes; }
    [[nodiscard]] std::int32_t getLibraryVersion() const override { return 1; }
    [[nodiscard]] bool isInitialised() const override { return true; }

    crypto::HashResult init() override
    {
        m_absorbed = 0;
        return note("init", m_script.init);
    }

    void release() override { m_script.events.emplace_back("release"); }

    crypto::HashResult update(const void* data, std::int32_t length) override
    {
        m_script.onUpdate();
        m_absorbed += static_cast<std::uint32_t>(length);
        return note((data == nullptr ? "update null " : "update ") + std::to_string(length), m_script.update);
    }

    crypto::HashResult final() override { return note("final", m_script.final); }

    crypto::HashResult getDigest(void* output, std::int32_t) const override
    {
        for (int i = 0; i < kDigestBytes; ++i)
            static_cast<char*>(output)[i] = static_cast<char>(m_absorbed >> (8 * i));
        return note("getDigest", m_script.getDigest);
    }

private:
    crypto::HashResult note(std::string event, const crypto::HashResult& result) const
    {
        m_script.events.push_back(std::move(event));
        return result;
    }

    Script& m_script;
    std::uint32_t m_absorbed = 0;
};

/// Bytes in memory. Says `claimedSize`, delivers at most `mostPerRead` a read, and fails from `failAt` on.
/// Past its end it delivers nothing, as a file that was cut short.
class MemoryStream final : public io::internal::IIStream<char>
{
public:
    explicit MemoryStream(std::string bytes)
        : claimedSize(static_cast<std::int64_t>(bytes.size()))
        , m_bytes(std::move(bytes))
    {
    }

    std::int64_t claimedSize;
    int mostPerRead = INT32_MAX;
    std::size_t failAt = SIZE_MAX;
    std::function<void()> onRead = [] {};
    std::vector<int> counts;          ///< what each read asked for
    std::vector<const char*> buffers; ///< where each read wrote

    static constexpr err::ResultCode kError{1, 5};

    [[nodiscard]] bool isBegin() const override { return m_position == 0; }
    [[nodiscard]] bool isEnd() const override { return m_position >= m_bytes.size(); }
    [[nodiscard]] std::int64_t size() const override { return claimedSize; }
    [[nodiscard]] err::ResultCode lastError() const override { return kError; }

    bool read(char* buffer, int count, unsigned* bytesRead) override
    {
        onRead();
        counts.push_back(count);
        buffers.push_back(buffer);
        if (m_position >= failAt)
            return false;
        const std::size_t wanted = static_cast<std::size_t>(std::min(count, mostPerRead));
        const std::size_t delivered = m_bytes.copy(buffer, wanted, m_position);
        m_position += delivered;
        *bytesRead = static_cast<unsigned>(delivered);
        return true;
    }

private:
    std::string m_bytes;
    std::size_t m_position = 0;
};

/// Writes what it hears into a list of events. `onFinished` and `onStarted` are called in the middle of it.
class RecordingCallback final : public crypto::IHashCallback
{
public:
    explicit RecordingCallback(Events& events)
        : m_events(events)
    {
    }

    std::function<void()> onStarted = [] {};
    std::function<void()> onFinished = [] {};
    std::vector<std::pair<std::int64_t, float>> reports;
    bool stopped = false;
    crypto::HashResult result;
    void* userData = nullptr;

    void onHashStarted(void* data) override
    {
        userData = data;
        m_events.emplace_back("started");
        onStarted();
    }

    void onHashProgress(std::int64_t processedBytes, float percent, void*) override
    {
        m_events.emplace_back("progress");
        reports.emplace_back(processedBytes, percent);
    }

    void onHashFinished(bool wasStopped, const crypto::HashResult& outcome, void*) override
    {
        m_events.emplace_back("finished");
        stopped = wasStopped;
        result = outcome;
        onFinished();
    }

private:
    Events& m_events;
};

} // namespace quillon::tests
