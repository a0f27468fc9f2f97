#pragma once

#include <QString>

namespace quillon::platform {

/// The full path of the program's entry in the user's Send To menu: on Windows a shortcut with the name
/// `productName`, on Unix a desktop entry with the name `productId` where Thunar looks for them. It need not
/// exist. Empty where the system does not say.
[[nodiscard]] QString sendToLinkPath(const QString& productName, const QString& productId);

} // namespace quillon::platform
