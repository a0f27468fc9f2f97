#pragma once

#include <QIcon>
#include <QString>

#include <string>

class QPlainTextEdit;
class QWidget;

/// Lays the windows out from right to left where `language`, an ISO 639 code, is written so, otherwise from
/// left to right; those that are open too. Belongs to the main thread.
void followDirectionOf(const std::string& language);

/// `value` as it can stand in a translated sentence: where the windows are laid out from right to left,
/// between the two invisible marks that keep it, from left to right, apart from the words around it;
/// otherwise as it is. For texts that are shown, never for what is copied, stored or logged.
[[nodiscard]] QString isolated(const QString& value);

/// The icon of that resource, which points somewhere: it points the other way where the windows are laid out
/// from right to left.
[[nodiscard]] QIcon pointingIcon(const QString& name);

/// Where the windows are laid out from right to left, takes the icons off the push buttons of `dialog` that
/// have a text too: Qt 5 would push the text to the button's left edge.
void keepButtonTextsCentred(const QWidget& dialog);

/// Lets the field show a digest from left to right in every language, also one without any letter.
void showLeftToRight(QPlainTextEdit& digest);
