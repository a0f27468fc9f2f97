#pragma once

#include <QString>

/// The keys of the settings store, built before the entry function runs. Readers supply the default that
/// stands here in their call and check the value themselves: a bad id counts as no stored algorithm, and any
/// other value for the clipboard copies nothing.
namespace thisapp::settings {

/// int, default 1033 (i18n::kDefaultLocaleId): the id of a locale, read at the start, before any window (see
/// i18n::findLocale).
inline const QString LocaleId = QStringLiteral("LocaleId");

/// int, default 1: what a successful run copies to the clipboard (see ClipboardCopy).
inline const QString WhatCopyToClipboard = QStringLiteral("WhatCopyToClipboard");

/// bool, default true: whether the two keys below choose the algorithm.
inline const QString UseDefaultAlgorithmAtStarting = QStringLiteral("UseDefaultAlgorithmAtStarting");

/// int, default 1: a library id (crypto::isHashLibraryValid).
inline const QString DefaultCryptoLibrary = QStringLiteral("DefaultCryptoLibrary");

/// int, default 11: an algorithm id (crypto::isHashAlgValid).
inline const QString DefaultCryptoHashAlgorithm = QStringLiteral("DefaultCryptoHashAlgorithm");

/// int, default 0: a level of the log level table (logger::logLevelFromNumber); any other value means 0.
inline const QString LogLevel = QStringLiteral("LogLevel");

/// bool, default false: whether the log goes to a file.
inline const QString UseLogFile = QStringLiteral("UseLogFile");

/// string, default empty, trimmed: host name or address of the proxy, and the user's name and password there.
/// The password's stored form is CBaseApp::encodeSettingValue's; one that cannot be decoded is the password.
inline const QString NetProxyServer = QStringLiteral("NetProxyServer");
inline const QString NetProxyLogin = QStringLiteral("NetProxyLogin");
inline const QString NetProxyPassword = QStringLiteral("NetProxyPassword");

/// int, default 0: the proxy's port.
inline const QString NetProxyPort = QStringLiteral("NetProxyPort");

/// int, default 0: the proxy's kind, 1, 2, 10, 20, 30, 50 or 51; any other value means 0.
inline const QString NetProxyType = QStringLiteral("NetProxyType");

/// int, default 0: a web::EProxySelectType; any other value leaves the selection as it is.
inline const QString NetProxySelectType = QStringLiteral("NetProxySelectType");

/// bool, default true: whether the desktop's context menu of files offers the program.
inline const QString IntegrateToShellContextMenu = QStringLiteral("IntegrateToShellContextMenu");

/// bool, default true: whether the desktop's Send To menu offers the program, from the next start on.
inline const QString AddToSendMenu = QStringLiteral("AddToSendMenu");

/// The values of WhatCopyToClipboard that copy something; every other value copies nothing.
enum ClipboardCopy : int
{
    kCopyNothing = 1,
    kCopyHex = 2,
    kCopyBase64 = 4
};

} // namespace thisapp::settings
