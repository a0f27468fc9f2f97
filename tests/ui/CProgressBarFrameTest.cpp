#include "ui/CProgressBarFrame.h"

#include <QLineEdit>
#include <QProgressBar>

#include <gtest/gtest.h>

#include <cmath>

namespace quillon::tests {
namespace {

TEST(ProgressBarFrame, CutsThePercentToThePerMilleAndLeavesTheBarWhereItIsNone)
{
    CProgressBarFrame frame;
    const std::pair<float, int> cases[] = {{0.0F, 0},     {0.099F, 0},    {0.1F, 1},    {37.512F, 375},
                                           {99.99F, 999}, {100.0F, 1000}, {25.0F, 250}, {-0.001F, 250},
                                           {NAN, 250},    {100.001F, 250}};
    for (const auto& [percent, value] : cases) {
        frame.setProgress("text", percent);
        EXPECT_EQ(frame.findChild<QProgressBar*>()->value(), value) << percent;
    }
}

TEST(ProgressBarFrame, ALongTextShowsItsBeginning)
{
    CProgressBarFrame frame;
    frame.showMessage(QString("word ").repeated(100));
    EXPECT_EQ(frame.findChild<QLineEdit*>()->cursorPosition(), 0);
}

} // namespace
} // namespace quillon::tests
