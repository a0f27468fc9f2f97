#include "logger/LogFile.h"

#include "logger/LogAppenderUtf8File.h"
#include "platform/Files.h"

#include <algorithm>
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

LogFile::LogFile(std::string path)
    : m_path(std::move(path))
    , m_maxBytes(kMaxFileBytes)
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
    const bool isTooBig = sizeOfFile(m_path) > m_maxBytes;
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
    // The stream would fill its buffer up with the beginning of the line and write that.
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
