#include "platform/Files.h"

#include "platform/unix/Posix.h"
#include "text/Unicode.h"

#include <fcntl.h>

#include <filesystem>
#include <system_error>

namespace quillon::platform {
namespace {

constexpr mode_t kOwnerOnly = S_IRUSR | S_IWUSR;

/// Opens without O_TRUNC, as nothing may be lost before the kind of the file is known. Always O_APPEND, as a
/// second process may write, and empty, the same log.
Descriptor openForWriting(const std::string& path)
{
    return Descriptor(
        open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, kOwnerOnly));
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

} // namespace

char nativeSeparator() noexcept
{
    return '/';
}

bool isSlashRoot() noexcept
{
    return true;
}

std::string fullPath(const std::string& path)
{
    if (path.empty())
        return {};
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path, error);
    return error ? std::string() : absolute.lexically_normal().string();
}

bool isPlainFile(const std::string& path)
{
    std::error_code error;
    return std::filesystem::is_regular_file(path, error);
}

bool isFileThere(const std::wstring& path)
{
    const std::string name = text::utf8FromWide(path);
    struct stat status = {};
    if (stat(name.c_str(), &status) == 0)
        return !S_ISDIR(status.st_mode);
    return lstat(name.c_str(), &status) == 0;
}

err::ResultCode removeFile(const std::wstring& path)
{
    if (unlink(text::utf8FromWide(path).c_str()) == 0)
        return {};
    return err::systemError(errno);
}

void createFolders(const std::string& path)
{
    // The ends of all parents, the root left out, and of the path itself. What exists already fails unharmed.
    for (std::size_t end = path.find('/', 1); end != std::string::npos; end = path.find('/', end + 1))
        static_cast<void>(mkdir(path.substr(0, end).c_str(), S_IRWXU));
    static_cast<void>(mkdir(path.c_str(), S_IRWXU));
}

void RuntimeFileCloser::operator()(std::FILE* file) const noexcept
{
    // Nothing can be done about a failing close, and readers lose nothing by it.
    static_cast<void>(std::fclose(file));
}

RuntimeFile openRuntimeFile(const char* path, const char* mode)
{
    return RuntimeFile(std::fopen(path, mode));
}

bool seekRuntimeFile(std::FILE* file, std::int64_t offset) noexcept
{
    return fseeko(file, offset, SEEK_SET) == 0;
}

bool seekRuntimeFileToEnd(std::FILE* file) noexcept
{
    return fseeko(file, 0, SEEK_END) == 0;
}

std::int64_t tellRuntimeFile(std::FILE* file) noexcept
{
    return ftello(file);
}

RuntimeFile openLogFile(const std::string& path, LogFileStart start)
{
    Descriptor descriptor = openForWriting(path);
    if (!descriptor.isOpen() || !isFit(descriptor.get()))
        return {};
    RuntimeFile file(fdopen(descriptor.get(), "ab"));
    if (file)
        static_cast<void>(descriptor.release()); // the file closes it
    if (file && start == LogFileStart::Empty && ftruncate(fileno(file.get()), 0) != 0)
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
