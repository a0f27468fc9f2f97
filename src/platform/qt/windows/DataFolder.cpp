#include "platform/qt/DataFolder.h"

#include <windows.h>

#include <shlobj.h>

namespace quillon::platform {

QString userDataFolder()
{
    wchar_t path[MAX_PATH] = {};
    if (FAILED(SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_DEFAULT, path)))
        return {};
    return QString::fromWCharArray(path);
}

} // namespace quillon::platform
