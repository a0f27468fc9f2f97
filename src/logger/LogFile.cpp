#include "logger/LogFile.h"

#include "platform/Files.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

namespace quillon::logger::internal {
namespace {

namespace fs = std::filesystem;
using platform::LogFileStart;

constexpr std::uint64_t kMaxFileBytes = 20'000'000;
constexpr std::size_t kStreamBufferBytes = 65'536;

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

fs::path nativePath(const std::string& utf8)
{
    return {std::u8string(utf8.begin(), utf8.end())};
}

/// 0 where there is no plain file.
std::uint64_t sizeOfFile(const std::string& path)
{
    std::error_code error;
    const fs::path file = nativePath(path);
    if (!fs::is_regular_file(file, error))
        return 0;
    const std::uintmax_t bytes = fs::file_size(file, error);
    return error ? 0 : bytes;
}

void createFolderOf(const std::string& path)
{
    std::error_code error;
    const fs::path folder = nativePath(path).parent_path();
    if (folder.empty() || fs::is_directory(folder, error))
        return;
    const std::u8string name = folder.u8string();
    platform::createFolders({name.begin(), name.end()});
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

LogFile::LogFile(std::string path)
    : m_path(std::move(path))
    , m_streamBuffer(kStreamBufferBytes)
{
}

void LogFile::writeLines(const std::vector<LogLine<char>>& lines)
{
    if (lines.empty())
        return;
    prepareFile();
    // After a failure the file is opened anew, as opening also mends a line that was cut.
    if (m_file && !writeAll(lines))
        m_file.reset();
    m_buffer.clear();
}

void LogFile::prepareFile()
{
    const bool isTooBig = sizeOfFile(m_path) > kMaxFileBytes;
    // Lines would vanish in a file that was renamed or removed meanwhile.
    if (m_file && !platform::isNameOfOpenFile(m_path, m_file.get()))
        m_file.reset();
    if (!m_file) {
        createFolderOf(m_path);
        std::error_code ignored;
        if (isTooBig)
            fs::remove(nativePath(m_path), ignored);
        openFile(LogFileStart::Keep);
    }
    if (m_file && isTooBig)
        openFile(LogFileStart::Empty);
}

void LogFile::openFile(LogFileStart start)
{
    m_file.reset();
    const bool isCut = start == LogFileStart::Keep && endsInsideALine();
    m_file = platform::openLogFile(m_path, start);
    if (!m_file)
        return;
    static_cast<void>(std::setvbuf(m_file.get(), m_streamBuffer.data(), _IOFBF, m_streamBuffer.size()));
    m_streamBytes = 0;
    m_buffer.assign(isCut ? 1U : 0U, '\n');
    static_cast<void>(writeBuffer());
}

/// True after a full disk or the end of a process cut the last write.
bool LogFile::endsInsideALine() const
{
    if (sizeOfFile(m_path) == 0)
        return false;
    const platform::RuntimeFile file = platform::openRuntimeFile(m_path.c_str(), "rb");
    return file && std::fseek(file.get(), -1, SEEK_END) == 0 && std::fgetc(file.get()) != '\n';
}

bool LogFile::writeAll(const std::vector<LogLine<char>>& lines)
{
    const auto writeLine = [this](const LogLine<char>& line) {
        formatLine(m_buffer, line);
        m_buffer += '\n';
        return writeBuffer();
    };
    return std::ranges::all_of(lines, writeLine) && flush();
}

bool LogFile::writeBuffer()
{
    // A line that does not fit any more would be written in two pieces: its beginning with the full buffer.
    if (m_streamBytes + m_buffer.size() > kStreamBufferBytes && !flush())
        return false;
    m_streamBytes += m_buffer.size();
    return std::fwrite(m_buffer.data(), 1, m_buffer.size(), m_file.get()) == m_buffer.size();
}

bool LogFile::flush()
{
    m_streamBytes = 0;
    return std::fflush(m_file.get()) == 0;
}

} // namespace quillon::logger::internal
