#include "ui/LightPalette.h"

#include <QApplication>
#include <QColor>
#include <QPalette>

namespace {

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::WindowText).lightness() > palette.color(QPalette::Window).lightness();
}

QPalette lightPalette()
{
    // Qt derives the other roles, and the disabled group, from the colour of a button.
    QPalette palette{QColor(239, 239, 239)};
    palette.setColor(QPalette::Highlight, QColor(79, 93, 115));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

} // namespace

void useLightPaletteOnDarkDesktop()
{
    if (isDark(QApplication::palette()))
        QApplication::setPalette(lightPalette());
}
