#pragma once

#include "io/ByteOrderMark.h"
#include "io/IIStream.h"
#include "io/StreamError.h"
#include "platform/Files.h"
#include "sync/SafeData.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <span>

namespace quillon::io {

/// The lines of a text file with a UTF-8 name, without any translation of line ends. Each read takes one line
/// at most, so that a caller loops until `isEnd`. A zero byte ends the delivery of its line. Opened once.
class IStreamUtf8File final : public internal::IIStream<char>
{
public:
    /// Opens an existing file. {5, 5} for a null or empty name, {5, 7} where the stream is open already,
    /// {3, errno} where the runtime library refuses, {5, 45} where the file's head cannot be read and {5,
    /// 204} where seeking fails. A failure is also kept as the last error.
    err::ResultCode open(const char* fileName);

    [[nodiscard]] bool isBegin() const override;
    [[nodiscard]] bool isEnd() const override;

    /// Besides what every stream answers: {5, 5} for a null buffer, {5, 104} where the stream is not open,
    /// {5, 3} where the file ended before the size that it had at its open, {5, 45} where reading fails. From
    /// a `count` of 2048 on the whole of the buffer is zeroed first, and two bytes of it stay free.
    bool read(char* buffer, int count, unsigned* bytesRead) override;

    /// Reads on over the ends of lines, for those who read whole files: fills `buffer` as far as the file
    /// reaches, less what zero bytes cut off from their lines. Returns how many bytes came; 0 for an empty
    /// buffer, at the end, and after a failure, which is kept as the last error as of `read`.
    std::size_t readLines(std::span<char> buffer);

    /// The size in bytes that the file had at its open, a byte order mark counted.
    [[nodiscard]] std::int64_t size() const override { return m_options.get().size; }

    [[nodiscard]] err::ResultCode lastError() const override { return m_error.get(); }

private:
    struct SFileOptions
    {
        std::int64_t size = 0;
        std::int64_t position = 0; ///< bytes delivered since the mark
        std::shared_ptr<std::FILE> file;
        EBomKind bom = EBomKind::None;
        bool isCutting = false; ///< what comes up to the end of the line stands behind a zero byte

        [[nodiscard]] bool isAtEnd() const noexcept { return position >= size; }
    };

    err::ResultCode openPastMark(const char* fileName);
    bool readLine(const SFileOptions& options, char* buffer, int count, unsigned* bytesRead);
    bool failLine(std::FILE* file);

    internal::StreamError m_error;
    sync::SafeData<sync::Locker, SFileOptions> m_options;
};

} // namespace quillon::io
