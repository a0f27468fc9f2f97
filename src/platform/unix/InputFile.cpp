#include "platform/InputFile.h"

#include "platform/unix/Posix.h"
#include "text/Unicode.h"

#include <fcntl.h>

namespace quillon::platform {

using err::systemError;

namespace {

/// Only what has a fixed number of bytes may be opened; already the open of a pipe or a device can wait for
/// ever or do harm, so the kind is looked at before.
err::ResultCode checkKind(mode_t mode)
{
    if (S_ISREG(mode) || S_ISBLK(mode))
        return {};
    return systemError(S_ISDIR(mode) ? EISDIR : EOPNOTSUPP);
}

/// Files that the kernel makes up, as under /proc, say that they are empty and are not.
err::ResultCode checkReallyEmpty(int descriptor)
{
    char byte = 0;
    const ssize_t got = retryInterrupted([&] { return pread(descriptor, &byte, 1, 0); });
    if (got < 0)
        return systemError(errno);
    return got == 0 ? err::ResultCode{} : systemError(EOPNOTSUPP);
}

/// The size of an open file; a block device has none in its record and is measured by seeking.
err::ResultCode measure(int descriptor, std::int64_t& size)
{
    struct stat status = {};
    if (fstat(descriptor, &status) != 0)
        return systemError(errno);
    if (const err::ResultCode kind = checkKind(status.st_mode); !err::succeeded(kind))
        return kind;
    size = S_ISBLK(status.st_mode) ? lseek(descriptor, 0, SEEK_END) : status.st_size;
    if (size < 0 || (S_ISBLK(status.st_mode) && lseek(descriptor, 0, SEEK_SET) != 0))
        return systemError(errno);
    return size == 0 ? checkReallyEmpty(descriptor) : err::ResultCode{};
}

} // namespace

InputFile::~InputFile()
{
    close(static_cast<int>(m_handle));
}

err::ResultCode InputFile::read(char* buffer, std::uint32_t count, std::uint32_t& bytesRead)
{
    const ssize_t got = retryInterrupted([&] { return ::read(static_cast<int>(m_handle), buffer, count); });
    if (got < 0)
        return systemError(errno);
    bytesRead = static_cast<std::uint32_t>(got);
    return {};
}

err::ResultCode openInputFile(const std::wstring& name, std::unique_ptr<InputFile>& file)
{
    const std::string path = text::utf8FromWide(name);
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0)
        return systemError(errno);
    if (const err::ResultCode kind = checkKind(status.st_mode); !err::succeeded(kind))
        return kind;
    // O_NONBLOCK: what lies there may have become a pipe since the look at it.
    Descriptor descriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
    if (!descriptor.isOpen())
        return systemError(errno);
    std::int64_t size = 0;
    if (const err::ResultCode measured = measure(descriptor.get(), size); !err::succeeded(measured))
        return measured;
    // Advice only: where the kernel does not take it, reading works all the same.
    static_cast<void>(posix_fadvise(descriptor.get(), 0, 0, POSIX_FADV_SEQUENTIAL));
    file.reset(new InputFile(descriptor.release(), size));
    return {};
}

} // namespace quillon::platform
