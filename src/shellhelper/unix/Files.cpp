#include "shellhelper/unix/Files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

namespace quillon::shellhelper {
namespace {

constexpr mode_t kPermissionBits = 07777;

std::string environment(const char* name)
{
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : value;
}

/// The folder that `variable` names, else `standard` in the user's home. Relative names do not count.
std::string userFolder(const char* variable, const char* standard)
{
    std::string folder = environment(variable);
    if (!folder.starts_with('/')) {
        const std::string home = environment("HOME");
        folder = home.starts_with('/') ? home + standard : std::string();
    }
    while (folder.ends_with('/'))
        folder.pop_back();
    return folder;
}

/// The parts of `list` between colons that are full paths.
std::vector<std::string> fullPaths(std::string_view list)
{
    std::vector<std::string> paths;
    while (!list.empty()) {
        const std::string_view path = list.substr(0, list.find(':'));
        if (path.starts_with('/'))
            paths.emplace_back(path);
        list.remove_prefix(std::min(path.size() + 1, list.size()));
    }
    return paths;
}

/// A file descriptor with an owner.
class Descriptor
{
public:
    explicit Descriptor(int value) noexcept
        : m_value(value)
    {
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { static_cast<void>(close()); }

    [[nodiscard]] int get() const noexcept { return m_value; }

    /// False where what was written could not be stored.
    [[nodiscard]] bool close() noexcept
    {
        const int value = std::exchange(m_value, -1);
        return value < 0 || ::close(value) == 0;
    }

private:
    int m_value;
};

err::ResultCode readAll(int descriptor, std::string& content)
{
    char buffer[4096];
    for (;;) {
        const ssize_t got = read(descriptor, buffer, sizeof buffer);
        if (got > 0)
            content.append(buffer, static_cast<std::size_t>(got));
        else if (got == 0)
            return {};
        else if (errno != EINTR)
            return systemError(errno);
    }
}

bool writeAll(int descriptor, std::string_view content)
{
    while (!content.empty()) {
        const ssize_t written = write(descriptor, content.data(), content.size());
        if (written < 0 && errno != EINTR)
            return false;
        content.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
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
    return state.exists && now.st_dev == then.st_dev && now.st_ino == then.st_ino &&
           now.st_size == then.st_size && now.st_mtim.tv_sec == then.st_mtim.tv_sec &&
           now.st_mtim.tv_nsec == then.st_mtim.tv_nsec;
}

/// The error number for a change of a shared file; 0 where it may be changed.
int refusal(const FileState& state)
{
    if (state.exists && state.status.st_uid != geteuid())
        return EPERM;
    return state.exists && (state.status.st_mode & S_IWUSR) == 0 ? EACCES : 0;
}

/// Puts a new file in the place of `path`. Without `former` it does not wait for the disk: after a crash of
/// the machine the next start makes the entry again. With it the file must still be as it was.
err::ResultCode replaceFile(const std::filesystem::path& path, std::string_view content, mode_t mode,
                            const FileState* former = nullptr)
{
    std::string beside = (path.parent_path() / ('.' + path.filename().string() + ".XXXXXX")).string();
    Descriptor descriptor(mkostemp(beside.data(), O_CLOEXEC));
    if (descriptor.get() < 0)
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
    const std::string list = environment("XDG_CONFIG_DIRS");
    return fullPaths(list.empty() ? "/etc/xdg" : list);
}

bool isInstalled(std::string_view program)
{
    return std::ranges::any_of(fullPaths(environment("PATH")), [program](const std::string& folder) {
        return access((folder + '/').append(program).c_str(), X_OK) == 0;
    });
}

bool isFolder(const std::string& path)
{
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

err::ResultCode systemError(int number)
{
    return {err::kGroupSystem, static_cast<std::uint32_t>(number)};
}

err::ResultCode readFile(const std::string& path, std::string& content)
{
    // O_NONBLOCK: a pipe in the place of a file must not hold up the program.
    const Descriptor descriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (descriptor.get() < 0)
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
    if (isRightAlready(path, content, mode))
        return {};
    std::error_code error;
    const std::filesystem::path target(path);
    std::filesystem::create_directories(target.parent_path(), error);
    return error ? systemError(error.value()) : replaceFile(target, content, mode);
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
    std::error_code error;
    const std::filesystem::path target(path);
    std::filesystem::create_directories(target.parent_path(), error);
    return error ? systemError(error.value()) : replaceFile(target, content, mode, &state);
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
