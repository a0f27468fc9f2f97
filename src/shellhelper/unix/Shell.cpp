// What has one way on every Unix desktop: texts, the shortcut and showing a folder.

#include "shellhelper/DesktopShell.h"
#include "shellhelper/unix/Entries.h"
#include "shellhelper/unix/Files.h"
#include "text/Unicode.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

namespace quillon::shellhelper {
namespace {

constexpr mode_t kDataMode = 0644;

/// Starts a program and forgets it: the process in between ends at once, so that no dead child stays behind.
void startDetached(const char* const* arguments)
{
    const pid_t child = fork();
    if (child == 0) {
        if (fork() == 0)
            execvp(arguments[0], const_cast<char* const*>(arguments));
        _exit(0);
    }
    if (child > 0)
        waitpid(child, nullptr, 0);
}

} // namespace

NativeText nativeText(const char* text)
{
    return text;
}

NativeText nativeText(const wchar_t* text)
{
    return text::utf8FromWide(text);
}

err::ResultCode notImplemented()
{
    return systemError(ENOSYS);
}

err::ResultCode createLink(const NativeText& target, const NativeText& description,
                           const NativeText& linkPath)
{
    if (!target.starts_with('/') || !linkPath.starts_with('/') || description.empty())
        return systemError(EINVAL);
    const std::string folder = std::filesystem::path(linkPath).parent_path().string();
    if (!isFolder(folder) && !isInstalled("thunar"))
        return systemError(ENOENT);
    return writeFile(linkPath, sendToEntry(description, target), kDataMode);
}

err::ResultCode openFolder(const NativeText& path)
{
    if (!path.starts_with('/'))
        return systemError(EINVAL);
    if (!isFolder(path))
        return systemError(ENOTDIR);
    constexpr const char* kOpener = "xdg-open";
    if (!isInstalled(kOpener))
        return systemError(ENOENT);
    const char* const arguments[] = {kOpener, path.c_str(), nullptr};
    startDetached(arguments);
    return {};
}

err::ResultCode openFolderAndSelect(const NativeText& /*path*/)
{
    return notImplemented();
}

} // namespace quillon::shellhelper
