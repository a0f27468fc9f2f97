#pragma once

#include "crypto/DigestText.h"
#include "crypto/HashCatalogue.h"
#include "settings/CAppSettings.h"

#include <QSettings>
#include <QString>
#include <QVariant>

#include <algorithm>
#include <optional>
#include <vector>

namespace thisapp::settings {

/// One value of the store: its key, what a reader takes where nothing or nothing valid is stored, and the
/// values that are valid.
template <class Value>
struct Setting
{
    QString key;
    Value byDefault;
    std::vector<Value> valid = {}; ///< empty: every value

    // NOLINTNEXTLINE(google-explicit-constructor): a setting stands for its key
    operator const QString&() const noexcept { return key; }

    [[nodiscard]] bool isValid(const Value& value) const
    {
        return valid.empty() || std::ranges::find(valid, value) != valid.end();
    }

    /// The stored value; `byDefault` where there is none or it is not valid.
    [[nodiscard]] Value read(const QSettings& store) const
    {
        const auto value = store.value(key, byDefault).template value<Value>();
        return isValid(value) ? value : byDefault;
    }

    void write(quillon::AppSettings& store, const Value& value) const { store.setValue(key, value); }
};

// The table of what the program stores. Nothing of it is kept in memory: each reader asks the store anew. It
// is built before the entry function runs.

/// The id of a locale, read at the start, before any window (i18n::kDefaultLocaleId; see i18n::findLocale).
inline const Setting<unsigned> LocaleId{QStringLiteral("LocaleId"), 1033};

/// What a successful run copies to the clipboard; an EDigestCopy, where 0 says nothing as well.
inline const Setting<int> WhatCopyToClipboard{
    QStringLiteral("WhatCopyToClipboard"), kCopyNothing, {0, kCopyNothing, kCopyHex, kCopyBase64}};

/// Whether the two below choose the algorithm at the start. An id that is not in its table counts as none.
inline const Setting<bool> UseDefaultAlgorithmAtStarting{QStringLiteral("UseDefaultAlgorithmAtStarting"),
                                                         true};
inline const Setting<int> DefaultCryptoLibrary{QStringLiteral("DefaultCryptoLibrary"),
                                               static_cast<int>(quillon::crypto::kDefaultHashAlg.lib)};
inline const Setting<int> DefaultCryptoHashAlgorithm{QStringLiteral("DefaultCryptoHashAlgorithm"),
                                                     static_cast<int>(quillon::crypto::kDefaultHashAlg.alg)};

/// A logger::ELogLevel.
inline const Setting<int> LogLevel{QStringLiteral("LogLevel"), 0, {0, 1, 2, 3, 4, 5, 6}};

/// Whether the log goes to a file.
inline const Setting<bool> UseLogFile{QStringLiteral("UseLogFile"), false};

/// Host name or address of the proxy, and the user's name and password there; readers trim them. The
/// password's stored form is CBaseApp::encodeSettingValue's; one that cannot be decoded is the password.
inline const Setting<QString> NetProxyServer{QStringLiteral("NetProxyServer"), {}};
inline const Setting<QString> NetProxyLogin{QStringLiteral("NetProxyLogin"), {}};
inline const Setting<QString> NetProxyPassword{QStringLiteral("NetProxyPassword"), {}};

/// The proxy's port.
inline const Setting<int> NetProxyPort{QStringLiteral("NetProxyPort"), 0};

/// The proxy's kind (see web::NetProxy).
inline const Setting<int> NetProxyType{QStringLiteral("NetProxyType"), 0, {20, 30, 1, 2, 50, 51, 10}};

/// A web::EProxySelectType; a reader leaves its selection as it is where another value is stored.
inline const Setting<int> NetProxySelectType{QStringLiteral("NetProxySelectType"), 0, {0, 1, 2}};

/// Whether the desktop's context menu of files, and its Send To menu, offer the program.
inline const Setting<bool> IntegrateToShellContextMenu{QStringLiteral("IntegrateToShellContextMenu"), true};
inline const Setting<bool> AddToSendMenu{QStringLiteral("AddToSendMenu"), true};

} // namespace thisapp::settings

namespace thisapp {

/// The stored default algorithm. Empty where the user wants none at the start or where a stored id is not in
/// its table. Whether library and algorithm belong together is for the caller to ask its catalogue.
[[nodiscard]] std::optional<SHashAlgId> readDefaultHashAlgorithm();

/// Stores `id` as the default algorithm.
void writeDefaultHashAlgorithm(const SHashAlgId& id);

} // namespace thisapp
