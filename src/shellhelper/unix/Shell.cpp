// What has one way on every Unix desktop: texts, the shortcut and showing a folder.

#include "platform/unix/Posix.h"
#include "shellhelper/DesktopShell.h"
#include "shellhelper/unix/Entries.h"
#include "shellhelper/unix/Files.h"
#include "text/Unicode.h"

#include <filesystem>

namespace quillon::shellhelper {

using err::systemError;

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
    if (!isFolder(folder) && platform::findProgram("thunar").empty())
        return systemError(ENOENT);
    return writeFile(linkPath, sendToEntry(description, target), 0644);
}

err::ResultCode openFolder(const NativeText& path)
{
    if (!path.starts_with('/'))
        return systemError(EINVAL);
    if (!isFolder(path))
        return systemError(ENOTDIR);
    const std::string opener = platform::findProgram("xdg-open");
    if (opener.empty())
        return systemError(ENOENT);
    platform::startDetached(opener, path);
    return {};
}

err::ResultCode openFolderAndSelect(const NativeText& /*path*/)
{
    return notImplemented();
}

} // namespace quillon::shellhelper
