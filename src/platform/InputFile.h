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
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;
    ~InputFile();

    /// Size in bytes at the time of the open.
    [[nodiscard]] std::int64_t size() const noexcept { return m_size; }

    /// Reads up to `count` bytes into `buffer` with one system call and moves on; `bytesRead` says how many
    /// came, 0 at the end of the file. Failure gives {1, system error} and leaves `bytesRead` alone.
    err::ResultCode read(char* buffer, std::uint32_t count, std::uint32_t& bytesRead);

private:
    friend err::ResultCode openInputFile(const std::wstring& name, std::unique_ptr<InputFile>& file);

    InputFile(std::intptr_t handle, std::int64_t size) noexcept
        : m_handle(handle)
        , m_size(size)
    {
    }

    std::intptr_t m_handle; ///< the system's: a descriptor, or a HANDLE
    std::int64_t m_size;
};

/// Opens an existing file by its wide name into `file`. Never blocks. Failure gives {1, system error} and
/// leaves `file` empty. What opens is what has bytes in a fixed number: a folder, a pipe, a socket or a
/// character device is refused, and so is a file that claims no size and has bytes all the same, as a digest
/// of nothing would be a lie.
err::ResultCode openInputFile(const std::wstring& name, std::unique_ptr<InputFile>& file);

} // namespace quillon::platform
