#include "ui/Fonts.h"

#include <QFontInfo>

namespace {

QFont resized(const QFont& font, int sizeDelta)
{
    // A font that was given in pixels answers -1 point.
    const int points = font.pointSize() > 0 ? font.pointSize() : QFontInfo(font).pointSize();
    QFont copy(font);
    copy.setPointSize(points + sizeDelta);
    return copy;
}

} // namespace

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
