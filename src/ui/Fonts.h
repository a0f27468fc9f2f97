#pragma once

#include <QFont>

/// A copy of `font` that is `sizeDelta` points larger, bold or of normal weight.
[[nodiscard]] QFont adjustFontBold(const QFont& font, int sizeDelta, bool bold);

/// A copy of `font` that is `sizeDelta` points larger, italic or upright.
[[nodiscard]] QFont adjustFontItalic(const QFont& font, int sizeDelta, bool italic);
