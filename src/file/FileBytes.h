#pragma once

#include "err/ResultCode.h"
#include "io/ByteOrderMark.h"
#include "platform/Files.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace quillon::file::internal {

/// The bytes of a file through a buffer of its own. One caller.
class FileBytes
{
public:
    /// False where the runtime library refuses, with the reason in errno.
    bool open(const std::string& path);
    void close() noexcept;

    [[nodiscard]] bool isOpen() const noexcept { return m_file != nullptr; }

    /// Moves to `offset` bytes from the start and forgets that the end was met; true on success.
    bool seek(std::int64_t offset);

    /// Appends to `bytes` what comes up to and including the next line feed, at most `limit` bytes. Less than
    /// that, and no line feed, means that the file has ended or failed.
    void takePiece(std::string& bytes, std::size_t limit = std::numeric_limits<std::size_t>::max());

    /// Appends all that is left.
    void takeRest(std::string& bytes);

    /// True from the call on that ran into the end of the file, or into a failing read: a caller that loops
    /// until the end must not try the bad place for ever.
    [[nodiscard]] bool isEnd() const noexcept { return m_isEnd; }

    [[nodiscard]] bool hasFailed() const noexcept { return m_hasFailed; }

private:
    bool fill();
    void moveTo(std::string& bytes, std::size_t count);

    platform::RuntimeFile m_file;
    std::vector<char> m_buffer;
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
    bool m_isEnd = false;
    bool m_hasFailed = false;
};

} // namespace quillon::file::internal

namespace quillon::file {

/// Tells by the head of the file with the UTF-8 name `path` which byte order mark it has. {5, 40} for an
/// empty path, {5, 41} where there is no such file or it is a folder, {5, 42} where it cannot be opened; no
/// mark then.
err::ResultCode detectBom(const std::string& path, io::EBomKind& kind);

} // namespace quillon::file
