#include "platform/qt/UserPlaces.h"

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

// The registry's key of the current user, which nobody else but an administrator can read.
SettingsStore settingsStore(const QString& organisation, const QString& product)
{
    return {QStringLiteral("HKEY_CURRENT_USER\\Software\\") + organisation + '\\' + product + '\\',
            QSettings::NativeFormat};
}

// The registry needs no lock of ours.
void prepareWrite(const SettingsStore& /*store*/) {}

QString sendToLinkPath(const QString& productName, const QString& /*productId*/)
{
    wchar_t folder[MAX_PATH] = {};
    if (FAILED(SHGetFolderPathW(nullptr, CSIDL_SENDTO, nullptr, SHGFP_TYPE_DEFAULT, folder)))
        return {};
    const QString path = QString::fromWCharArray(folder) + '\\' + productName + ".lnk";
    return path.size() < MAX_PATH ? path : QString();
}

QString allFilesPattern()
{
    return QStringLiteral(" (*.*)");
}

} // namespace quillon::platform
