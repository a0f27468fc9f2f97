#include "logger/LogAppenderUtf8File.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <mutex>
#include <utility>

namespace quillon::logger::internal {
namespace {

constexpr std::uint64_t kTicksPerMs = 10'000;
constexpr std::chrono::sys_days kFirstDay{std::chrono::January / 1 / 1601};

template <class... Values>
std::string formatted(const char* format, Values... values)
{
    std::array<char, 64> text{};
    const int length = std::snprintf(text.data(), text.size(), format, values...);
    return {text.data(), static_cast<std::size_t>(std::max(length, 0))};
}

int toInt(auto count)
{
    return static_cast<int>(count);
}

std::string timeText(std::uint64_t ticks)
{
    using namespace std::chrono;
    const auto sinceFirstDay = milliseconds(static_cast<std::int64_t>(ticks / kTicksPerMs));
    const days wholeDays = floor<days>(sinceFirstDay);
    const year_month_day date(kFirstDay + wholeDays);
    const hh_mm_ss time(sinceFirstDay - wholeDays);
    return formatted("%04i.%02i.%02i %02i:%02i:%02i:%03i", int{date.year()}, toInt(unsigned{date.month()}),
                     toInt(unsigned{date.day()}), toInt(time.hours().count()), toInt(time.minutes().count()),
                     toInt(time.seconds().count()), toInt(time.subseconds().count()));
}

/// The level's name; for a level without one, which nobody writes at, `otherwise`.
std::string levelText(ELogLevel level, const std::string& otherwise)
{
    const auto* const row = std::ranges::find(logLevelNames, level, &LogLevelName::id);
    return row != logLevelNames.end() ? row->shortName : otherwise;
}

std::string numberText(std::uint32_t number)
{
    return formatted("%05llu", static_cast<unsigned long long>(number));
}

void appendField(std::string& out, const std::string& text)
{
    out.append("[").append(text).append("] ");
}

} // namespace

void formatLine(std::string& out, const LogLine<char>& line)
{
    out.clear();
    const std::string time = line.time > 0 ? timeText(line.time) : std::string();
    if (!time.empty())
        appendField(out, time);
    appendField(out, levelText(line.level, time));
    appendField(out, numberText(line.processId));
    appendField(out, numberText(line.threadId));
    appendField(out, line.category);
    out += line.message;
}

} // namespace quillon::logger::internal

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

/// Moves the queue into the empty `batch`; false where nothing waits. The two change their memory, so that
/// neither asks for more while lines come at an even rate.
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
