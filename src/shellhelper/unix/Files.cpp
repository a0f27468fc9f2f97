#include "shellhelper/unix/Files.h"

#include "platform/unix/Posix.h"

#include <fcntl.h>

#include <filesystem>
#include <system_error>

namespace quillon::shellhelper {

using err::systemError;
using platform::Descriptor;
using platform::environmentText;
using platform::fullPaths;
using platform::isSameFile;
using platform::retryInterrupted;

namespace {

constexpr mode_t kPermissionBits = 07777;

/// The folder that `variable` names, else `standard` in the user's home. Relative names do not count.
std::string userFolder(const char* variable, const char* standard)
{
    std::string folder = environmentText(variable);
    if (!folder.starts_with('/')) {
        const std::string home = environmentText("HOME");
        folder = home.starts_with('/') ? home + standard : std::string();
    }
    while (folder.ends_with('/'))
        folder.pop_back();
    return folder;
}

err::ResultCode readAll(int descriptor, std::string& content)
{
    char buffer[4096];
    for (;;) {
        const ssize_t got = retryInterrupted([&] { return read(descriptor, buffer, sizeof buffer); });
        if (got <= 0)
            return got == 0 ? err::ResultCode{} : systemError(errno);
        content.append(buffer, static_cast<std::size_t>(got));
    }
}

bool writeAll(int descriptor, std::string_view content)
{
    while (!content.empty()) {
        const ssize_t written =
            retryInterrupted([&] { return write(descriptor, content.data(), content.size()); });
        if (written < 0)
            return false;
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool isRightAlready(const std::string& path, std::string_view content, mode_t mode)
{
    struct stat status = {};
    std::string current;
    return lstat(path.c_str(), &status) == 0 && (status.st_mode & kPermissionBits) == mode &&
           status.st_size == static_cast<off_t>(content.size()) && err::succeeded(readFile(path, current)) &&
           current == content;
}

bool isUnchanged(const std::string& path, const FileState& state)
{
    struct stat now = {};
    if (lstat(path.c_str(), &now) != 0)
        return !state.exists && errno == ENOENT;
    const struct stat& then = state.status;
    return state.exists && isSameFile(now, then) && now.st_size == then.st_size &&
           now.st_mtim.tv_sec == then.st_mtim.tv_sec && now.st_mtim.tv_nsec == then.st_mtim.tv_nsec;
}

/// The error number for a change of a shared file; 0 where it may be changed.
int refusal(const FileState& state)
{
    if (state.exists && state.status.st_uid != geteuid())
        return EPERM;
    return state.exists && (state.status.st_mode & S_IWUSR) == 0 ? EACCES : 0;
}

/// Puts a new file in the place of `path`, with its missing folders. Without `former` it does not wait for
/// the disk: after a crash of the machine the next start makes the entry again. With it the file must still
/// be as it was.
err::ResultCode replaceFile(const std::filesystem::path& path, std::string_view content, mode_t mode,
                            const FileState* former = nullptr)
{
    std::error_code noFolder;
    std::filesystem::create_directories(path.parent_path(), noFolder);
    if (noFolder)
        return systemError(noFolder.value());
    std::string beside = (path.parent_path() / ('.' + path.filename().string() + ".XXXXXX")).string();
    Descriptor descriptor(mkostemp(beside.data(), O_CLOEXEC));
    if (!descriptor.isOpen())
        return systemError(errno);
    const auto isStillThere = [&] {
        if (former == nullptr || isUnchanged(path.string(), *former))
            return true;
        errno = EAGAIN;
        return false;
    };
    const bool isWritten = writeAll(descriptor.get(), content) && fchmod(descriptor.get(), mode) == 0 &&
                           (former == nullptr || fdatasync(descriptor.get()) == 0) && descriptor.close() &&
                           isStillThere() && rename(beside.c_str(), path.c_str()) == 0;
    if (isWritten)
        return {};
    const int error = errno;
    unlink(beside.c_str());
    return systemError(error);
}

} // namespace

std::string dataHome()
{
    return userFolder("XDG_DATA_HOME", "/.local/share");
}

std::string configHome()
{
    return userFolder("XDG_CONFIG_HOME", "/.config");
}

std::vector<std::string> systemConfigFolders()
{
    const std::string list = environmentText("XDG_CONFIG_DIRS");
    return fullPaths(list.empty() ? "/etc/xdg" : list);
}

bool isFolder(const std::string& path)
{
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

err::ResultCode readFile(const std::string& path, std::string& content)
{
    // O_NONBLOCK: a pipe in the place of a file must not hold up the program.
    const Descriptor descriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!descriptor.isOpen())
        return systemError(errno);
    struct stat status = {};
    if (fstat(descriptor.get(), &status) != 0)
        return systemError(errno);
    if (!S_ISREG(status.st_mode))
        return systemError(EINVAL);
    content.clear();
    return readAll(descriptor.get(), content);
}

err::ResultCode writeFile(const std::string& path, std::string_view content, mode_t mode)
{
    return isRightAlready(path, content, mode) ? err::ResultCode{} : replaceFile(path, content, mode);
}

err::ResultCode readSharedFile(const std::string& path, std::string& content, FileState& state)
{
    state.exists = lstat(path.c_str(), &state.status) == 0;
    if (!state.exists)
        return errno == ENOENT ? err::ResultCode{} : systemError(errno);
    return S_ISREG(state.status.st_mode) ? readFile(path, content) : systemError(EINVAL);
}

err::ResultCode writeSharedFile(const std::string& path, std::string_view content, const FileState& state)
{
    constexpr mode_t kNewMode = 0644;
    const mode_t mode = state.exists ? state.status.st_mode & kPermissionBits : kNewMode;
    if (isRightAlready(path, content, mode))
        return {};
    if (const int number = refusal(state); number != 0)
        return systemError(number);
    return replaceFile(path, content, mode, &state);
}

err::ResultCode removeSharedFile(const std::string& path, const FileState& state)
{
    if (const int number = refusal(state); number != 0)
        return systemError(number);
    return isUnchanged(path, state) ? removeFile(path) : systemError(EAGAIN);
}

err::ResultCode removeFile(const std::string& path)
{
    return unlink(path.c_str()) == 0 || errno == ENOENT || errno == ENOTDIR ? err::ResultCode{}
                                                                            : systemError(errno);
}

} // namespace quillon::shellhelper
