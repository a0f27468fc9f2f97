#pragma once

#include <QSettings>
#include <QString>

namespace quillon::platform {

/// The folder in which programs keep this user's data, without a separator at its end: the roaming
/// application data on Windows, the XDG data home on Unix. Need not exist. Empty where the system does not
/// say.
[[nodiscard]] QString userDataFolder();

/// Where QSettings finds the settings of one product of this user.
struct SettingsStore
{
    QString path;
    QSettings::Format format;
};

/// The store of `product`, with the organisation as the level above it. Where the store is a file that
/// exists, only its owner can read it afterwards, as it will hold a password. What lies there and is no file
/// gives defaults.
[[nodiscard]] SettingsStore settingsStore(const QString& organisation, const QString& product);

/// To be called ahead of a write to `store`. Where that is a file, makes it and its folder for the owner
/// alone; a failure to make it so is silent. Takes away the lock that a killed writer has left on it, where
/// it is older than two seconds, and waits for it to get as old as that; longer it blocks for no lock.
void prepareWrite(const SettingsStore& store);

/// The full path of the program's entry in the user's Send To menu: on Windows a shortcut with the name
/// `productName`, on Unix a desktop entry with the name `productId` where Thunar looks for them. It need not
/// exist. Empty where the system does not say.
[[nodiscard]] QString sendToLinkPath(const QString& productName, const QString& productId);

/// The pattern with which a file dialog of this system shows every file, in parentheses: " (*)" or " (*.*)".
[[nodiscard]] QString allFilesPattern();

} // namespace quillon::platform
