#include "ui/Appearance.h"

#include <QApplication>
#include <QPalette>

#include <gtest/gtest.h>

namespace quillon::tests {
namespace {

TEST(Fonts, TheBoldCopyDiffersInSizeAndWeightOnly)
{
    QFont font("DejaVu Sans", 10);
    font.setItalic(true);
    const QFont bold = adjustFontBold(font, 1, true);
    EXPECT_EQ(bold.pointSize(), 11);
    EXPECT_EQ(bold.weight(), 75);
    EXPECT_TRUE(bold.italic());
    EXPECT_EQ(adjustFontBold(bold, -2, false).pointSize(), 9);
    EXPECT_EQ(adjustFontBold(bold, -2, false).weight(), 50);
}

TEST(Fonts, TheItalicCopyDiffersInSizeAndStyleOnly)
{
    QFont font("DejaVu Sans", 10);
    font.setWeight(QFont::Bold);
    const QFont italic = adjustFontItalic(font, 1, true);
    EXPECT_EQ(italic.pointSize(), 11);
    EXPECT_EQ(italic.style(), QFont::StyleItalic);
    EXPECT_EQ(italic.weight(), QFont::Bold);
    EXPECT_EQ(adjustFontItalic(italic, 0, false).style(), QFont::StyleNormal);
}

TEST(Fonts, AFontInPixelsGetsASizeInPoints)
{
    QFont font("DejaVu Sans");
    font.setPixelSize(16);
    EXPECT_GT(adjustFontBold(font, 1, true).pointSize(), 1);
}

class LightPalette : public testing::Test
{
protected:
    LightPalette()
        : former(QApplication::palette())
    {
    }
    ~LightPalette() override { QApplication::setPalette(former); }

    QPalette former;
};

TEST_F(LightPalette, ReplacesADarkOne)
{
    QApplication::setPalette(QPalette(QColor(40, 40, 40)));
    useLightPaletteOnDarkDesktop();
    const QPalette palette = QApplication::palette();
    for (const auto& [text, ground] :
         {std::pair{QPalette::WindowText, QPalette::Window}, std::pair{QPalette::Text, QPalette::Base},
          std::pair{QPalette::ButtonText, QPalette::Button}})
        EXPECT_GT(palette.color(ground).lightness(), palette.color(text).lightness() + 128);
}

TEST_F(LightPalette, LeavesALightOneAlone)
{
    const QPalette cream(QColor(250, 240, 220));
    QApplication::setPalette(cream);
    useLightPaletteOnDarkDesktop();
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), cream.color(QPalette::Window));
}

} // namespace
} // namespace quillon::tests
