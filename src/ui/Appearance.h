#pragma once

#include <QFont>

/// Makes the program's icons known under ":/kestrum/". They lie in a static library, from which the linker
/// would otherwise drop them. Call it before the first form is built; more calls do no harm.
void initialiseResources();

/// Gives the application a light palette where the desktop's is dark, that is, where the text is lighter than
/// the window: the forms' own colours are made for a light background. Call it after the application object
/// is made and before the first widget.
void useLightPaletteOnDarkDesktop();

/// A copy of `font` that is `sizeDelta` points larger, bold or of normal weight.
[[nodiscard]] QFont adjustFontBold(const QFont& font, int sizeDelta, bool bold);

/// A copy of `font` that is `sizeDelta` points larger, italic or upright.
[[nodiscard]] QFont adjustFontItalic(const QFont& font, int sizeDelta, bool italic);
