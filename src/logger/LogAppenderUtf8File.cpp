#include "logger/LogAppenderUtf8File.h"

#include <chrono>
#include <cstddef>
#include <mutex>
#include <utility>

namespace quillon::logger {
namespace {

constexpr std::uint32_t kWriterId = 100;
constexpr std::size_t kMaxWaitingLines = 10'000;
constexpr std::chrono::milliseconds kLongestWait{10'000};

const char* orEmpty(const char* text) noexcept
{
    return text == nullptr ? "" : text;
}

} // namespace

LogAppenderUtf8File::LogAppenderUtf8File(std::uint64_t identifier, std::string path)
    : LogAppender(identifier)
    , m_file(std::move(path))
{
    m_thread.setId(kWriterId);
    m_thread.setRunnable(this);
}

LogAppenderUtf8File::~LogAppenderUtf8File()
{
    m_stop.set(true);
    m_queue.set({});
    m_linesWait.set();
    static_cast<void>(m_thread.wait());
    closeFile();
}

err::ResultCode LogAppenderUtf8File::start()
{
    if (m_thread.isRunning())
        return {};
    m_stop.set(false);
    // Lines may wait since before the start.
    m_linesWait.set();
    return m_thread.start();
}

void LogAppenderUtf8File::append(std::uint64_t time, std::uint32_t processId, std::uint32_t threadId,
                                 ELogLevel level, const char* category, const char* message,
                                 std::uint32_t extra)
{
    try {
        if (m_stop.get() || isQueueFull())
            return;
        enqueue({time, processId, threadId, level, orEmpty(category), orEmpty(message), extra});
        m_linesWait.set();
    } catch (...) {
        // There is no memory for the line. Whoever logs must not come to harm by it.
    }
}

bool LogAppenderUtf8File::isQueueFull()
{
    const std::lock_guard guard(m_queue);
    return m_queue.value.size() >= kMaxWaitingLines;
}

void LogAppenderUtf8File::enqueue(internal::LogLine<char> line)
{
    const std::lock_guard guard(m_queue);
    m_queue.value.push_back(std::move(line));
}

err::ResultCode LogAppenderUtf8File::run(std::uint32_t id, std::int64_t /*param*/)
{
    if (id != kWriterId)
        return {};
    Lines batch;
    while (!m_stop.get()) {
        m_linesWait.waitFor(kLongestWait);
        m_linesWait.reset();
        writeWaitingLines(batch);
    }
    return {};
}

void LogAppenderUtf8File::writeWaitingLines(Lines& batch)
{
    while (!m_stop.get() && takeWaitingLines(batch)) {
        writeBatch(batch);
        batch.clear();
    }
}

/// Exchanges the queue and the empty `batch`; false where nothing waited. As the memory is exchanged too,
/// both keep what they once had, and lines that come at an even rate need no more.
bool LogAppenderUtf8File::takeWaitingLines(Lines& batch)
{
    const std::lock_guard guard(m_queue);
    m_queue.value.swap(batch);
    return !batch.empty();
}

void LogAppenderUtf8File::writeBatch(const Lines& batch) noexcept
{
    try {
        const std::lock_guard guard(m_fileLock);
        m_file.writeLines(batch);
    } catch (...) {
        // The batch is lost for want of memory; the next one tries again.
    }
}

void LogAppenderUtf8File::closeFile()
{
    const std::lock_guard guard(m_fileLock);
    m_file.close();
}

} // namespace quillon::logger
