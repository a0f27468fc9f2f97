#include "ui/CSelectAlgFrame.h"

#include "ui/AlgorithmProviders.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>

namespace quillon::tests {
namespace {

using thisapp::SHashAlgId;

class SelectAlgFrame : public testing::Test
{
protected:
    SelectAlgFrame()
        : combo(frame.findChild<QComboBox*>("comboBoxSelectAlg"))
    {
        frame.setHashAlgProvider(&provider);
    }

    ListedAlgorithms provider;
    CSelectAlgFrame frame;
    QComboBox* combo;
};

TEST_F(SelectAlgFrame, BeforeTheFirstFillingThereIsNoAlgorithm)
{
    EXPECT_EQ(frame.getCurrentAlgorithm(), SHashAlgId{});
}

TEST_F(SelectAlgFrame, AfterTheFillingTheFirstRowIsCurrent)
{
    frame.reloadAlgorithms();
    EXPECT_EQ(combo->count(), 32);
    EXPECT_EQ(combo->currentText(), "SHA1 (20-bite)");
    EXPECT_EQ(frame.getCurrentAlgorithm(), (SHashAlgId{1, 1}));
}

TEST_F(SelectAlgFrame, AnAlgorithmThatNoRowHasChangesNothing)
{
    frame.reloadAlgorithms();
    frame.setCurrentAlgorithm({300, 110});
    EXPECT_EQ(combo->currentText(), "Skein1024-1024");
    for (const SHashAlgId id : {SHashAlgId{1, 110}, SHashAlgId{}, SHashAlgId{300, 999}})
        frame.setCurrentAlgorithm(id);
    EXPECT_EQ(frame.getCurrentAlgorithm(), (SHashAlgId{300, 110}));
}

TEST_F(SelectAlgFrame, TheKeyboardMovesTheSelection)
{
    frame.reloadAlgorithms();
    frame.show();
    combo->setFocus();
    QTest::keyClick(combo, Qt::Key_Down);
    QTest::keyClick(combo, Qt::Key_Down);
    EXPECT_EQ(frame.getCurrentAlgorithm(), crypto::kDefaultHashAlg);
}

TEST_F(SelectAlgFrame, TheOpenListShowsAtMostSeventeenRows)
{
    frame.reloadAlgorithms();
    frame.show();
    combo->showPopup();
    QAbstractItemView* list = combo->view();
    ASSERT_TRUE(QTest::qWaitFor([list] { return list->isVisible(); }));
    EXPECT_LE(list->viewport()->height(), 17 * list->sizeHintForRow(0));
    EXPECT_EQ(list->verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    combo->hidePopup();
}

TEST_F(SelectAlgFrame, RetranslatingKeepsTheSelection)
{
    frame.reloadAlgorithms();
    frame.setCurrentAlgorithm({1, 401});
    auto* label = frame.findChild<QLabel*>("labelSelectAlg");
    label->setText("other language");
    frame.retranslateFrame();
    EXPECT_EQ(label->text(), "Algorithm:");
    EXPECT_EQ(combo->currentText(), "CRC32 (4-bite)");
}

TEST_F(SelectAlgFrame, TheFormHasItsSizes)
{
    EXPECT_EQ(frame.size(), QSize(155, 69));
    EXPECT_EQ(frame.minimumWidth(), 155);
    EXPECT_EQ(frame.maximumWidth(), 195);
    EXPECT_EQ(combo->maxVisibleItems(), 17);
    EXPECT_EQ(combo->accessibleName(), "Algorithm");
}

} // namespace
} // namespace quillon::tests
