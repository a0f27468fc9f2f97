#pragma once

#include "i18n/Locale.h"

/// The locale that the user has chosen, from the settings store; English (United States) where none is stored
/// or no locale has the stored id, which then stays in the store as it is.
[[nodiscard]] quillon::i18n::internal::Locale<char> storedLocale();

/// Loads the texts of the stored locale into the program's bundle, which it names after the product. Called
/// before the first widget, with or without an application object. A failure leaves the English texts.
void loadStartLanguage();
