#include "io/IStreamUtf8File.h"

#include "io/ByteOrderMark.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <mutex>
#include <optional>
#include <string_view>
#include <utility>

namespace quillon::io {
namespace {

// Not "ccs=UTF-8": where a runtime library knows that addition, it turns the file into one of wide
// characters, which the byte-wise reads below cannot use.
constexpr const char* kReadBytesMode = "rb";

/// Reads below this size go through a buffer of our own, which has room for the terminator.
constexpr int kLineBufferBytes = 2048;

/// Measures the file and rewinds it; empty where seeking fails.
std::optional<std::int64_t> measure(std::FILE* file)
{
    if (!platform::seekRuntimeFileToEnd(file))
        return std::nullopt;
    const std::int64_t size = platform::tellRuntimeFile(file);
    if (size < 0 || !platform::seekRuntimeFile(file, 0))
        return std::nullopt;
    return size;
}

/// The mark at the head of a file of `size` bytes; empty where the head cannot be read.
///
/// fgets takes one byte less than the width that is compared, and the last byte compared is its terminator.
/// So a head of FF FE 00 is all that is ever recognised, and other marks stay in the data: callers rely on
/// this.
std::optional<EBomKind> lookForMark(std::FILE* file, std::int64_t size)
{
    const auto width = static_cast<int>(std::min(size, std::int64_t{kLongestMarkBytes}));
    if (width < 2)
        return EBomKind::None;
    std::array<char, kLongestMarkBytes> head{};
    if (std::fgets(head.data(), width, file) == nullptr)
        return std::nullopt;
    const std::string_view seen(head.data(), static_cast<std::size_t>(width));
    const auto* const mark = std::ranges::find(kByteOrderMarks, seen, &ByteOrderMark::bytes);
    return mark == kByteOrderMarks.end() ? EBomKind::None : mark->kind;
}

/// Takes one line of at most `limit` bytes into `buffer`, which has room for `count`, and returns how many
/// bytes it has up to the first zero; empty where nothing came.
std::optional<std::size_t> takeLine(std::FILE* file, char* buffer, int count, int limit)
{
    if (limit >= kLineBufferBytes) {
        std::memset(buffer, 0, static_cast<std::size_t>(count));
        // Two bytes less than asked for are a deliberate margin, on which callers may rely.
        if (std::fgets(buffer, limit - 1, file) == nullptr)
            return std::nullopt;
        return std::strlen(buffer);
    }
    std::array<char, kLineBufferBytes> line{};
    if (std::fgets(line.data(), limit + 1, file) == nullptr)
        return std::nullopt;
    const std::size_t length = std::strlen(line.data());
    std::memcpy(buffer, line.data(), length);
    return length;
}

/// Drops each zero byte and what follows it up to and including the end of its line, which may come in a
/// later call, and returns how many bytes are left.
std::size_t dropCutBytes(std::span<char> bytes, bool& isCutting)
{
    const std::string_view text(bytes.data(), bytes.size());
    std::size_t kept = 0;
    for (std::size_t from = 0; from < text.size();) {
        if (isCutting) {
            const std::size_t end = text.find('\n', from);
            if (end == std::string_view::npos)
                return kept;
            from = end + 1;
        }
        const std::size_t zero = std::min(text.find('\0', from), text.size());
        if (kept != from)
            std::memmove(bytes.data() + kept, bytes.data() + from, zero - from);
        kept += zero - from;
        isCutting = zero < text.size();
        from = zero + 1;
    }
    return kept;
}

} // namespace

err::ResultCode IStreamUtf8File::open(const char* fileName)
{
    if (fileName == nullptr || *fileName == '\0')
        return m_error.keep(err::programError(err::kInvalidArgument));
    if (m_options.get().file)
        return m_error.keep(err::programError(err::kAlreadyExists));
    return m_error.keep(openPastMark(fileName));
}

err::ResultCode IStreamUtf8File::openPastMark(const char* fileName)
{
    errno = 0;
    platform::RuntimeFile file = platform::openRuntimeFile(fileName, kReadBytesMode);
    if (!file && errno != 0)
        return {err::kGroupRuntime, static_cast<std::uint32_t>(errno)};
    const std::optional<std::int64_t> size = file ? measure(file.get()) : std::nullopt;
    if (!size)
        return err::programError(err::kFileSeekFailed);
    const std::optional<EBomKind> mark = lookForMark(file.get(), *size);
    if (!mark)
        return err::programError(err::kFileReadFailed);
    if (!platform::seekRuntimeFile(file.get(), bomLength(*mark)))
        return err::programError(err::kFileSeekFailed);
    m_options.set({*size, 0, std::move(file), *mark});
    return {};
}

bool IStreamUtf8File::isBegin() const
{
    const SFileOptions options = m_options.get();
    return options.file && options.position == 0;
}

bool IStreamUtf8File::isEnd() const
{
    const SFileOptions options = m_options.get();
    return !options.file || options.isAtEnd();
}

bool IStreamUtf8File::read(char* buffer, int count, unsigned* bytesRead)
{
    if (const std::optional<bool> answer = m_error.beginRead(buffer, count, bytesRead))
        return *answer;
    const SFileOptions options = m_options.get();
    if (!options.file)
        return m_error.fail(err::programError(err::kStreamNotOpen));
    return !options.isAtEnd() && readLine(options, buffer, count, bytesRead);
}

std::size_t IStreamUtf8File::readLines(std::span<char> buffer)
{
    m_error.reset();
    std::size_t kept = 0;
    while (kept == 0 && !buffer.empty() && !isEnd()) {
        const SFileOptions options = m_options.get();
        const auto limit = static_cast<std::uint64_t>(options.size - options.position);
        const std::size_t wanted = static_cast<std::size_t>(std::min<std::uint64_t>(buffer.size(), limit));
        const std::size_t count = std::fread(buffer.data(), 1, wanted, options.file.get());
        if (count == 0) {
            static_cast<void>(failLine(options.file.get()));
            break;
        }
        bool isCutting = options.isCutting;
        kept = dropCutBytes(buffer.first(count), isCutting);
        const std::lock_guard guard(m_options);
        m_options.value.isCutting = isCutting;
        m_options.value.position += static_cast<std::int64_t>(kept);
    }
    return kept;
}

bool IStreamUtf8File::readLine(const SFileOptions& options, char* buffer, int count, unsigned* bytesRead)
{
    const auto limit = static_cast<int>(std::min<std::int64_t>(count, options.size - options.position));
    const std::optional<std::size_t> length = takeLine(options.file.get(), buffer, count, limit);
    if (!length)
        return failLine(options.file.get());
    const std::lock_guard guard(m_options);
    m_options.value.position += static_cast<std::int64_t>(*length);
    *bytesRead = static_cast<unsigned>(*length);
    return true;
}

bool IStreamUtf8File::failLine(std::FILE* file)
{
    if (std::ferror(file) != 0)
        return m_error.fail(err::programError(err::kFileReadFailed));
    return std::feof(file) != 0 && m_error.fail(err::programError(err::kEndOfFile));
}

} // namespace quillon::io
