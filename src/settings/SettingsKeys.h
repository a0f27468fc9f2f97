#pragma once

#include <QString>

/// The keys of the settings store, built before the entry function runs. Readers supply the default that
/// stands here in their call and check the value themselves: a bad id counts as no stored algorithm, and any
/// other value for the clipboard copies nothing.
namespace thisapp::settings {

/// int, default 1: what a successful run copies to the clipboard (see ClipboardCopy).
inline const QString WhatCopyToClipboard = QStringLiteral("WhatCopyToClipboard");

/// bool, default true: whether the two keys below choose the algorithm.
inline const QString UseDefaultAlgorithmAtStarting = QStringLiteral("UseDefaultAlgorithmAtStarting");

/// int, default 1: a library id (crypto::isHashLibraryValid).
inline const QString DefaultCryptoLibrary = QStringLiteral("DefaultCryptoLibrary");

/// int, default 11: an algorithm id (crypto::isHashAlgValid).
inline const QString DefaultCryptoHashAlgorithm = QStringLiteral("DefaultCryptoHashAlgorithm");

/// The values of WhatCopyToClipboard that copy something; every other value copies nothing.
enum ClipboardCopy : int
{
    kCopyNothing = 1,
    kCopyHex = 2,
    kCopyBase64 = 4
};

} // namespace thisapp::settings
