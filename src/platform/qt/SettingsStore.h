#pragma once

#include <QSettings>
#include <QString>

namespace quillon::platform {

/// Where QSettings finds the settings of one product of this user.
struct SettingsStore
{
    QString path;
    QSettings::Format format;
};

/// The store of `product`, with the organisation as the level above it. Where the store is a file it exists
/// afterwards and only its owner can read it, as it will hold a password; a failure to make it so is silent,
/// and reading it then gives defaults.
[[nodiscard]] SettingsStore settingsStore(const QString& organisation, const QString& product);

} // namespace quillon::platform
