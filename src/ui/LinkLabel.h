#pragma once

#include <QString>

/// The rich text of a label that shows `text` as a link to `address`, blue and underlined. Both stand in it
/// as they are, so neither may hold characters that HTML gives a meaning to.
[[nodiscard]] QString makeLinkLabelText(const QString& text, const QString& address);

/// The address that opens the mail program with a message to support about this program.
[[nodiscard]] QString supportMailAddress();
