#include "file/FileBytes.h"

#include "err/ResultCode.h"
#include "io/ByteOrderMark.h"
#include "platform/Files.h"

#include <algorithm>
#include <cstring>

namespace quillon::file::internal {
namespace {

// Even, so that a two-byte unit is never spread over two fills.
constexpr std::size_t kBufferBytes = 65536;

} // namespace

bool FileBytes::open(const std::string& path)
{
    m_file = platform::openRuntimeFile(path.c_str(), "rb");
    return isOpen();
}

void FileBytes::close() noexcept
{
    *this = {};
}

bool FileBytes::seek(std::int64_t offset)
{
    std::clearerr(m_file.get());
    m_begin = m_end = 0;
    m_isEnd = m_hasFailed = false;
    return platform::seekRuntimeFile(m_file.get(), offset);
}

void FileBytes::takePiece(std::string& bytes, std::size_t limit)
{
    while (limit > 0 && fill()) {
        const char* const first = m_buffer.data() + m_begin;
        const std::size_t width = std::min(limit, m_end - m_begin);
        const auto* const lineFeed = static_cast<const char*>(std::memchr(first, '\n', width));
        moveTo(bytes, lineFeed == nullptr ? width : static_cast<std::size_t>(lineFeed - first) + 1);
        if (lineFeed != nullptr)
            return;
        limit -= width;
    }
}

void FileBytes::takeRest(std::string& bytes)
{
    while (fill())
        moveTo(bytes, m_end - m_begin);
}

/// True where the buffer holds a byte at least.
bool FileBytes::fill()
{
    if (m_begin < m_end)
        return true;
    if (m_isEnd)
        return false;
    m_buffer.resize(kBufferBytes);
    m_begin = 0;
    m_end = std::fread(m_buffer.data(), 1, m_buffer.size(), m_file.get());
    m_isEnd = m_end == 0;
    m_hasFailed = m_isEnd && std::ferror(m_file.get()) != 0;
    return !m_isEnd;
}

void FileBytes::moveTo(std::string& bytes, std::size_t count)
{
    bytes.append(m_buffer.data() + m_begin, count);
    m_begin += count;
}

} // namespace quillon::file::internal

namespace quillon::file {
namespace {

std::string readHead(std::FILE* file)
{
    std::string head(io::kLongestMarkBytes, '\0');
    head.resize(std::fread(head.data(), 1, head.size(), file));
    return head;
}

} // namespace

err::ResultCode detectBom(const std::string& path, io::EBomKind& kind)
{
    kind = io::EBomKind::None;
    if (path.empty())
        return err::programError(err::kPathEmpty);
    if (!platform::isPlainFile(path))
        return err::programError(err::kFileNotFound);
    const platform::RuntimeFile file = platform::openRuntimeFile(path.c_str(), "rb");
    if (!file)
        return err::programError(err::kFileOpenFailed);
    const std::string head = readHead(file.get());
    const auto* const mark = std::ranges::find_if(
        io::kByteOrderMarks, [&head](const auto& each) { return head.starts_with(each.bytes); });
    if (mark != io::kByteOrderMarks.end())
        kind = mark->kind;
    return {};
}

} // namespace quillon::file
