#include "platform/LogFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillon::platform {
namespace {

constexpr mode_t kOwnerOnly = S_IRUSR | S_IWUSR;

/// Opens without O_TRUNC, as nothing may be lost before the kind of the file is known. Always O_APPEND, as a
/// second process may write, and empty, the same log.
int openForWriting(const std::string& path)
{
    return open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, kOwnerOnly);
}

bool isFit(int descriptor)
{
    struct stat status = {};
    if (fstat(descriptor, &status) != 0)
        return false;
    if (!S_ISREG(status.st_mode))
        return S_ISCHR(status.st_mode);
    if ((status.st_mode & (S_IRWXG | S_IRWXO)) != 0)
        static_cast<void>(fchmod(descriptor, status.st_mode & S_IRWXU));
    return true;
}

bool isSameFile(const struct stat& a, const struct stat& b) noexcept
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

} // namespace

RuntimeFile openLogFile(const std::string& path, LogFileStart start)
{
    const int descriptor = openForWriting(path);
    if (descriptor < 0)
        return {};
    RuntimeFile file(isFit(descriptor) ? fdopen(descriptor, "ab") : nullptr);
    if (!file)
        close(descriptor);
    else if (start == LogFileStart::Empty && ftruncate(descriptor, 0) != 0)
        file.reset();
    return file;
}

bool isNameOfOpenFile(const std::string& path, std::FILE* file) noexcept
{
    struct stat named = {};
    struct stat opened = {};
    return stat(path.c_str(), &named) == 0 && fstat(fileno(file), &opened) == 0 && isSameFile(named, opened);
}

} // namespace quillon::platform
