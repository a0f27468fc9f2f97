#include "platform/InputFile.h"

#include "platform/Clock.h"
#include "platform/unix/Posix.h"
#include "text/Unicode.h"

#include <fcntl.h>

#include <chrono>
#include <thread>

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

/// A block device has no size in its record and is measured by seeking; without a medium it has none at all.
err::ResultCode measureDevice(int descriptor, std::int64_t& size)
{
    size = lseek(descriptor, 0, SEEK_END);
    if (size < 0 || lseek(descriptor, 0, SEEK_SET) != 0)
        return systemError(errno);
    return size == 0 ? systemError(ENOMEDIUM) : err::ResultCode{};
}

/// Not the time of the last change, which new rights, a new name and an unlink move as well.
InputFile::Stamp stampOf(const struct stat& status)
{
    constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;
    return {status.st_size, status.st_mtim.tv_sec * kNanosecondsPerSecond + status.st_mtim.tv_nsec, true};
}

err::ResultCode measure(int descriptor, InputFile::Stamp& stamp)
{
    struct stat status = {};
    if (fstat(descriptor, &status) != 0)
        return systemError(errno);
    if (const err::ResultCode kind = checkKind(status.st_mode); !err::succeeded(kind))
        return kind;
    if (S_ISBLK(status.st_mode))
        return measureDevice(descriptor, stamp.size);
    stamp = stampOf(status);
    return stamp.size == 0 ? checkReallyEmpty(descriptor) : err::ResultCode{};
}

int openForReading(const std::string& path)
{
    // O_NONBLOCK: what lies there may have become a pipe since the look at it.
    constexpr int kFlags = O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
    return static_cast<int>(retryInterrupted([&] { return open(path.c_str(), kFlags); }));
}

/// A file server may hold a lease on a file. Such an open asks it to give the lease back, which takes a while
/// and is over at the latest when the kernel breaks the lease.
int openLeased(const std::string& path, const StopQuery& isStopped)
{
    constexpr std::chrono::milliseconds kPause{20};
    constexpr std::uint32_t kPatienceMs = 60'000;
    const std::uint32_t start = tickCountMs();
    int descriptor = openForReading(path);
    while (descriptor < 0 && errno == EWOULDBLOCK && tickCountMs() - start < kPatienceMs) {
        std::this_thread::sleep_for(kPause);
        // Asked right before each try: a stop that comes during the pause must not become a run.
        if (isStopped && isStopped()) {
            errno = EWOULDBLOCK;
            break;
        }
        descriptor = openForReading(path);
    }
    return descriptor;
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

bool InputFile::isChanged() const noexcept
{
    struct stat status = {};
    return m_stamp.isRegular && fstat(static_cast<int>(m_handle), &status) == 0 && stampOf(status) != m_stamp;
}

err::ResultCode openInputFile(const std::wstring& name, std::unique_ptr<InputFile>& file,
                              const StopQuery& isStopped)
{
    const std::string path = text::utf8FromWide(name);
    struct stat status = {};
    if (retryInterrupted([&] { return stat(path.c_str(), &status); }) != 0)
        return systemError(errno);
    if (const err::ResultCode kind = checkKind(status.st_mode); !err::succeeded(kind))
        return kind;
    Descriptor descriptor(S_ISREG(status.st_mode) ? openLeased(path, isStopped) : openForReading(path));
    if (!descriptor.isOpen())
        return systemError(errno);
    InputFile::Stamp stamp;
    if (const err::ResultCode measured = measure(descriptor.get(), stamp); !err::succeeded(measured))
        return measured;
    // Advice only: where the kernel does not take it, reading works all the same.
    static_cast<void>(posix_fadvise(descriptor.get(), 0, 0, POSIX_FADV_SEQUENTIAL));
    file.reset(new InputFile(descriptor.release(), stamp));
    return {};
}

} // namespace quillon::platform
