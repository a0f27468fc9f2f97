#include "ui/CProgressBarFrame.h"

#include "ui/PrintQString.h"

#include <QLayout>
#include <QLineEdit>
#include <QProgressBar>

#include <gtest/gtest.h>

#include <limits>

namespace quillon::tests {
namespace {

class ProgressBarFrame : public testing::Test
{
protected:
    ProgressBarFrame()
        : line(frame.findChild<QLineEdit*>("lineEditProgressBar"))
        , bar(frame.findChild<QProgressBar*>("progressBar"))
    {
    }

    /// The colour that most of the line is painted in when its text is a row of full blocks.
    [[nodiscard]] QColor paintedColour() const
    {
        return line->grab().toImage().pixelColor(line->fontMetrics().averageCharWidth(), line->height() / 2);
    }

    CProgressBarFrame frame;
    QLineEdit* line;
    QProgressBar* bar;
};

TEST_F(ProgressBarFrame, StartsWithoutItsBar)
{
    EXPECT_TRUE(bar->isHidden());
    EXPECT_EQ(bar->minimum(), 0);
    EXPECT_EQ(bar->maximum(), 1000);
    EXPECT_TRUE(line->text().isEmpty());
}

TEST_F(ProgressBarFrame, EachKindOfTextIsPaintedInItsColour)
{
    const QString blocks(40, QChar(0x2588));
    frame.resize(200, 40);
    frame.showErrorText(blocks);
    EXPECT_EQ(paintedColour(), QColor(255, 0, 0));
    frame.showSuccessText(blocks);
    EXPECT_EQ(paintedColour(), QColor(0, 95, 0));
    frame.showMessage(blocks);
    EXPECT_EQ(paintedColour(), QColor(0, 0, 0));
    EXPECT_EQ(line->text(), blocks);
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        EXPECT_EQ(line->palette().color(group, QPalette::Text), QColor(0, 0, 0));
}

TEST_F(ProgressBarFrame, ProgressShowsTheBarAndABlackText)
{
    frame.showErrorText("error");
    frame.setProgress("half", 50.0F);
    EXPECT_FALSE(bar->isHidden());
    EXPECT_EQ(line->text(), "half");
    EXPECT_EQ(line->palette().color(QPalette::Text), QColor(0, 0, 0));
    frame.setProgressBarVisible(false);
    EXPECT_TRUE(bar->isHidden());
    frame.setProgressBarVisible(true);
    EXPECT_FALSE(bar->isHidden());
}

struct PercentCase
{
    float percent;
    int value;
};

TEST_F(ProgressBarFrame, ThePercentIsCutToThePerMille)
{
    for (const auto& [percent, value] :
         {PercentCase{0.0F, 0}, {0.099F, 0}, {0.1F, 1}, {37.512F, 375}, {99.99F, 999}, {100.0F, 1000}}) {
        frame.setProgress("text", percent);
        EXPECT_EQ(bar->value(), value) << percent;
    }
}

TEST_F(ProgressBarFrame, APercentOutOfRangeLeavesTheBar)
{
    frame.setProgress("text", 25.0F);
    for (const float percent : {-0.001F, 100.001F, std::numeric_limits<float>::quiet_NaN()}) {
        frame.setProgress("other", percent);
        EXPECT_EQ(bar->value(), 250) << percent;
    }
    bar->setRange(0, 0);
    frame.setProgress("text", 50.0F);
    EXPECT_EQ(bar->maximum(), 0);
}

TEST_F(ProgressBarFrame, ALongTextShowsItsBeginning)
{
    frame.resize(100, 40);
    frame.showMessage(QString("word ").repeated(100));
    EXPECT_EQ(line->cursorPosition(), 0);
}

TEST_F(ProgressBarFrame, TheFormHasItsShape)
{
    EXPECT_EQ(frame.windowTitle(), "Frame");
    EXPECT_EQ(frame.size(), QSize(400, 46));
    EXPECT_EQ(frame.sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
    EXPECT_EQ(frame.sizePolicy().verticalPolicy(), QSizePolicy::Minimum);
    EXPECT_EQ(frame.layout()->contentsMargins(), QMargins(6, 0, 6, 4));
    EXPECT_TRUE(line->isReadOnly());
    EXPECT_FALSE(line->hasFrame());
    EXPECT_EQ(bar->minimumHeight(), 14);
    EXPECT_EQ(bar->maximumSize(), QSize(16777215, 14));
    EXPECT_FALSE(bar->isTextVisible());
    EXPECT_FALSE(line->accessibleName().isEmpty() || bar->accessibleName().isEmpty());
}

} // namespace
} // namespace quillon::tests
