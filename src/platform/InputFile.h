#pragma once

#include "err/ResultCode.h"

#include <cstdint>
#include <memory>
#include <string>

namespace quillon::platform {

/// A file that is open for reading from its first byte to its last. Other programs may go on writing to it.
/// The destructor closes it. `read` belongs to one thread at a time.
class InputFile
{
public:
    virtual ~InputFile() = default;

    /// Size in bytes at the time of the open.
    [[nodiscard]] virtual std::int64_t size() const noexcept = 0;

    /// Reads up to `count` bytes into `buffer` with one system call and moves on; `bytesRead` says how many
    /// came, 0 at the end of the file. Failure gives {1, system error} and leaves `bytesRead` alone.
    virtual err::ResultCode read(char* buffer, std::uint32_t count, std::uint32_t& bytesRead) = 0;
};

/// Opens an existing file by its wide name into `file`. Never blocks. Failure gives {1, system error} and
/// leaves `file` empty. What opens is what has bytes in a fixed number: a folder, a pipe, a socket or a
/// character device is refused, and so is a file that claims no size and has bytes all the same, as a digest
/// of nothing would be a lie.
err::ResultCode openInputFile(const std::wstring& name, std::unique_ptr<InputFile>& file);

} // namespace quillon::platform
