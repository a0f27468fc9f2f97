#include "platform/Folders.h"

#include "text/Unicode.h"

#include <windows.h>

#include <shlobj.h>

#include <algorithm>

namespace quillon::platform {

void createFolders(const std::string& path)
{
    std::wstring name = text::wideFromUtf8(path);
    // The shell's call knows no other separator.
    std::ranges::replace(name, L'/', L'\\');
    static_cast<void>(SHCreateDirectoryExW(nullptr, name.c_str(), nullptr));
}

} // namespace quillon::platform
