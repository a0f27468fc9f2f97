#include "platform/InputFile.h"

#include "err/ResultCode.h"
#include "text/Unicode.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace quillon::platform {
namespace {

err::ResultCode systemError(int code)
{
    return {err::kGroupSystem, static_cast<std::uint32_t>(code)};
}

err::ResultCode lastSystemError()
{
    return systemError(errno);
}

/// A file descriptor with an owner.
class Descriptor
{
public:
    explicit Descriptor(int value) noexcept
        : m_value(value)
    {
    }
    Descriptor(Descriptor&& other) noexcept
        : m_value(std::exchange(other.m_value, -1))
    {
    }
    Descriptor& operator=(Descriptor&&) = delete;
    ~Descriptor()
    {
        if (m_value >= 0)
            close(m_value);
    }

    [[nodiscard]] int get() const noexcept { return m_value; }

private:
    int m_value;
};

template <class Call>
ssize_t retryInterrupted(Call call)
{
    ssize_t result = 0;
    do {
        result = call();
    } while (result < 0 && errno == EINTR);
    return result;
}

class UnixInputFile final : public InputFile
{
public:
    UnixInputFile(Descriptor descriptor, std::int64_t size) noexcept
        : m_descriptor(std::move(descriptor))
        , m_size(size)
    {
    }

    [[nodiscard]] std::int64_t size() const noexcept override { return m_size; }

    err::ResultCode read(char* buffer, std::uint32_t count, std::uint32_t& bytesRead) override
    {
        const ssize_t got = retryInterrupted([&] { return ::read(m_descriptor.get(), buffer, count); });
        if (got < 0)
            return lastSystemError();
        bytesRead = static_cast<std::uint32_t>(got);
        return {};
    }

private:
    Descriptor m_descriptor;
    std::int64_t m_size;
};

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
        return lastSystemError();
    return got == 0 ? err::ResultCode{} : systemError(EOPNOTSUPP);
}

/// The size of an open file; a block device has none in its record and is measured by seeking.
err::ResultCode measure(int descriptor, std::int64_t& size)
{
    struct stat status = {};
    if (fstat(descriptor, &status) != 0)
        return lastSystemError();
    if (const err::ResultCode kind = checkKind(status.st_mode); !err::succeeded(kind))
        return kind;
    size = S_ISBLK(status.st_mode) ? lseek(descriptor, 0, SEEK_END) : status.st_size;
    if (size < 0 || (S_ISBLK(status.st_mode) && lseek(descriptor, 0, SEEK_SET) != 0))
        return lastSystemError();
    return size == 0 ? checkReallyEmpty(descriptor) : err::ResultCode{};
}

} // namespace

err::ResultCode openInputFile(const std::wstring& name, std::unique_ptr<InputFile>& file)
{
    const std::string path = text::utf8FromWide(name);
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0)
        return lastSystemError();
    if (const err::ResultCode kind = checkKind(status.st_mode); !err::succeeded(kind))
        return kind;
    // O_NONBLOCK: what lies there may have become a pipe since the look at it.
    Descriptor descriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
    if (descriptor.get() < 0)
        return lastSystemError();
    std::int64_t size = 0;
    if (const err::ResultCode measured = measure(descriptor.get(), size); !err::succeeded(measured))
        return measured;
    // Advice only: where the kernel does not take it, reading works all the same.
    static_cast<void>(posix_fadvise(descriptor.get(), 0, 0, POSIX_FADV_SEQUENTIAL));
    file = std::make_unique<UnixInputFile>(std::move(descriptor), size);
    return {};
}

} // namespace quillon::platform
