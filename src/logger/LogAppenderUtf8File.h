#pragma once

#include "err/ResultCode.h"
#include "logger/LogFile.h"
#include "logger/LogLine.h"
#include "logger/LogSender.h"
#include "sync/Locker.h"
#include "sync/SafeData.h"
#include "thread/IThread.h"
#include "thread/Thread.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>
#include <vector>

namespace quillon::logger::internal {

/// A signal that stays set until it is reset. Any thread may call any operation.
class ManualResetEvent
{
public:
    void set()
    {
        {
            const std::lock_guard guard(m_mutex);
            // Whoever waits was woken already; another wake-up would be a system call for nothing.
            if (m_isSet)
                return;
            m_isSet = true;
        }
        m_changed.notify_all();
    }

    void reset()
    {
        const std::lock_guard guard(m_mutex);
        m_isSet = false;
    }

    /// Returns once the event is set, and after `limit` at the latest.
    void waitFor(std::chrono::milliseconds limit)
    {
        std::unique_lock guard(m_mutex);
        m_changed.wait_for(guard, limit, [this] { return m_isSet; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_isSet = false;
};

} // namespace quillon::logger::internal

namespace quillon::logger {

/// Queues lines in memory and writes them from a thread of its own to a text file in UTF-8, which it holds
/// near 20,000,000 bytes by emptying it. Nobody who logs waits for the disk: while about 10,000 lines wait,
/// further ones are lost, and so is a batch that cannot be written. Nothing of this is reported. Lines of one
/// thread keep their order.
class LogAppenderUtf8File final : public internal::LogAppender<char>, public thread::IRunnable
{
public:
    /// `path` is the full name of the file in UTF-8. It, and its folder, is made with the first line.
    LogAppenderUtf8File(std::uint64_t identifier, std::string path);

    /// Drops what still waits, and waits for no more than the batch that is being written.
    ~LogAppenderUtf8File() override;

    /// Starts the writing; success where it runs already. Fails as IThread::start does. Belongs to the
    /// owner's thread.
    err::ResultCode start();

    /// A message ends at its first zero byte.
    void append(std::uint64_t time, std::uint32_t processId, std::uint32_t threadId, ELogLevel level,
                const char* category, const char* message, std::uint32_t extra) override;

    [[nodiscard]] bool isAsynchronous() const override { return true; }

    /// The writer's work, for its thread.
    err::ResultCode run(std::uint32_t id, std::int64_t param) override;

private:
    using Lines = std::vector<internal::LogLine<char>>;

    [[nodiscard]] bool isQueueFull();
    [[nodiscard]] bool takeWaitingLines(Lines& batch);
    void enqueue(internal::LogLine<char> line);
    void writeWaitingLines(Lines& batch);
    void writeBatch(const Lines& batch) noexcept;
    void closeFile();

    sync::SafeValue<bool> m_stop{false};
    internal::ManualResetEvent m_linesWait;
    thread::Thread m_thread;
    sync::SafeData<sync::Locker, Lines> m_queue;
    sync::Locker m_fileLock; ///< held for a whole batch
    internal::LogFile m_file;
};

} // namespace quillon::logger
