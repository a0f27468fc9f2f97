#pragma once

#include "err/ResultCode.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace quillon::platform {

/// Whether whoever asked for something wants it no longer. Any thread.
using StopQuery = std::function<bool()>;

/// A file that is open for reading from its first byte to its last. Other programs may go on writing to it.
/// The destructor closes it. `read` belongs to one thread at a time.
class InputFile
{
public:
    /// What a writer cannot help moving.
    struct Stamp
    {
        std::int64_t size = 0;      ///< in bytes
        std::int64_t lastWrite = 0; ///< in the system's own unit
        bool isRegular = false;     ///< what is no regular file has no time that would tell anything

        friend bool operator==(const Stamp&, const Stamp&) = default;
    };

    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;
    ~InputFile();

    /// Size in bytes at the time of the open.
    [[nodiscard]] std::int64_t size() const noexcept { return m_stamp.size; }

    /// Reads up to `count` bytes into `buffer` with one system call and moves on; `bytesRead` says how many
    /// came, 0 at the end of the file. Failure gives {1, system error} and leaves `bytesRead` alone.
    err::ResultCode read(char* buffer, std::uint32_t count, std::uint32_t& bytesRead);

    /// Whether a regular file's size or the time of the last write to it differs from those at the open. A
    /// writer on Windows that still has the file open may stay unseen.
    [[nodiscard]] bool isChanged() const noexcept;

private:
    friend err::ResultCode openInputFile(const std::wstring& name, std::unique_ptr<InputFile>& file,
                                         const StopQuery& isStopped);

    InputFile(std::intptr_t handle, const Stamp& stamp) noexcept
        : m_handle(handle)
        , m_stamp(stamp)
    {
    }

    std::intptr_t m_handle; ///< the system's: a descriptor, or a HANDLE
    Stamp m_stamp;
};

/// Opens an existing file by its wide name into `file`. Failure gives {1, system error} and leaves `file`
/// empty. What opens is what has bytes in a fixed number: a folder, a pipe, a socket or a character device is
/// refused, and so is a drive without a medium and a file that claims no size and has bytes all the same, as
/// a digest of nothing would be a lie.
///
/// It waits for no pipe and no device. A regular file that another program holds back by a lease on Unix is
/// waited for, a minute at most and not longer than `isStopped` is false, which is asked every 20 ms; the
/// look at a file of a network that does not answer takes as long as the system lets it.
err::ResultCode openInputFile(const std::wstring& name, std::unique_ptr<InputFile>& file,
                              const StopQuery& isStopped = {});

} // namespace quillon::platform
