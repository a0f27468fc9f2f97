#include "platform/qt/SettingsStore.h"

namespace quillon::platform {

// The registry's key of the current user, which nobody else but an administrator can read.
SettingsStore settingsStore(const QString& organisation, const QString& product)
{
    return {QStringLiteral("HKEY_CURRENT_USER\\Software\\") + organisation + '\\' + product + '\\',
            QSettings::NativeFormat};
}

} // namespace quillon::platform
