#include "ui/Appearance.h"

#include <QApplication>
#include <QFontInfo>
#include <QPalette>

#include <gtest/gtest.h>

namespace quillon::tests {
namespace {

TEST(Fonts, AnAdjustedCopyDiffersInSizeAndWeightOrStyleOnly)
{
    const QFont font("DejaVu Sans", 10);
    const QFont bold = adjustFontBold(font, 1, true);
    EXPECT_EQ(bold, QFont("DejaVu Sans", 11, QFont::Bold));
    EXPECT_EQ(adjustFontItalic(bold, -2, true), QFont("DejaVu Sans", 9, QFont::Bold, true));
    EXPECT_EQ(adjustFontBold(bold, -1, false), font);
    EXPECT_EQ(adjustFontItalic(QFont("DejaVu Sans", 9, QFont::Normal, true), 1, false), font);

    QFont inPixels("DejaVu Sans");
    inPixels.setPixelSize(16);
    // Without any font on the system there is no answer.
    if (const int points = QFontInfo(inPixels).pointSize(); points > 0) {
        EXPECT_EQ(adjustFontBold(inPixels, 1, true).pointSize(), points + 1);
    }
}

TEST(LightPalette, ReplacesADarkOneOnly)
{
    const QPalette former = QApplication::palette();
    const QPalette cream(QColor(250, 240, 220));
    QApplication::setPalette(cream);
    useLightPaletteOnDarkDesktop();
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), cream.color(QPalette::Window));
    QApplication::setPalette(QPalette(QColor(40, 40, 40)));
    useLightPaletteOnDarkDesktop();
    const auto lightness = [](auto role) { return QApplication::palette().color(role).lightness(); };
    EXPECT_GT(lightness(QPalette::Window), lightness(QPalette::WindowText) + 128);
    EXPECT_GT(lightness(QPalette::HighlightedText), lightness(QPalette::Highlight) + 128);
    QApplication::setPalette(former);
}

} // namespace
} // namespace quillon::tests
