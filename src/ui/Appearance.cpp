#include "ui/Appearance.h"

#include <QApplication>
#include <QColor>
#include <QFontInfo>
#include <QPalette>
#include <QtPlugin>

Q_IMPORT_PLUGIN(IconFilePlugin)

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

QFont resized(const QFont& font, int sizeDelta)
{
    // A font that was given in pixels answers -1 point.
    const int points = font.pointSize() > 0 ? font.pointSize() : QFontInfo(font).pointSize();
    QFont copy(font);
    copy.setPointSize(points + sizeDelta);
    return copy;
}

} // namespace

void initialiseResources()
{
    Q_INIT_RESOURCE(kestrum);
}

void useLightPaletteOnDarkDesktop()
{
    if (isDark(QApplication::palette()))
        QApplication::setPalette(lightPalette());
}

QFont adjustFontBold(const QFont& font, int sizeDelta, bool bold)
{
    QFont copy = resized(font, sizeDelta);
    copy.setWeight(bold ? QFont::Bold : QFont::Normal);
    return copy;
}

QFont adjustFontItalic(const QFont& font, int sizeDelta, bool italic)
{
    QFont copy = resized(font, sizeDelta);
    copy.setStyle(italic ? QFont::StyleItalic : QFont::StyleNormal);
    return copy;
}
