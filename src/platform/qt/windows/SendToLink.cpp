#include "platform/qt/SendToLink.h"

#include <windows.h>

#include <shlobj.h>

namespace quillon::platform {

QString sendToLinkPath(const QString& productName, const QString& /*productId*/)
{
    wchar_t folder[MAX_PATH] = {};
    if (FAILED(SHGetFolderPathW(nullptr, CSIDL_SENDTO, nullptr, SHGFP_TYPE_DEFAULT, folder)))
        return {};
    const QString path = QString::fromWCharArray(folder) + '\\' + productName + ".lnk";
    return path.size() < MAX_PATH ? path : QString();
}

} // namespace quillon::platform
