#include "ui/CSelectAlgorithmDialog.h"

#include "ui/AlgorithmProviders.h"
#include "ui/CSelectAlgFrame.h"
#include "ui/Table.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

namespace quillon::tests {
namespace {

using thisapp::SHashAlgId;

class SelectAlgorithm : public testing::Test
{
protected:
    SelectAlgorithm() { dialog.setHashAlgProvider(&provider); }

    ListedAlgorithms provider;
    CSelectAlgorithmDialog dialog;
};

TEST_F(SelectAlgorithm, TheDialogOpensOnTheBuiltInDefaultAndNamesTheRow)
{
    dialog.show();
    const auto* const label = dialog.findChild<QLabel*>("labelSelectAlg");
    EXPECT_EQ(label->text(), "Algorithm: SHA-256");
    QTest::keyClick(dialog.findChild<QListWidget*>(), Qt::Key_Down);
    EXPECT_EQ(label->text(), "Algorithm: SHA-384");
    EXPECT_FALSE(dialog.windowFlags().testFlag(Qt::WindowContextHelpButtonHint));
}

TEST_F(SelectAlgorithm, TheDialogHandsOverTheChoiceAfterOkOnlyAndKeepsItWhileItIsHidden)
{
    dialog.setCurrentAlgorithm({1, 400});
    dialog.show();
    QTest::keyClick(dialog.findChild<QListWidget*>(), Qt::Key_Down);
    dialog.findChild<QCheckBox*>()->click();
    QTest::mouseClick(dialog.findChild<QPushButton*>("buttonCancel"), Qt::LeftButton);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.getCurrentAlgorithm(), (SHashAlgId{1, 400}));
    EXPECT_FALSE(dialog.isSetAsDefault());
    dialog.show();
    QTest::mouseClick(dialog.findChild<QPushButton*>("buttonOk"), Qt::LeftButton);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.getCurrentAlgorithm(), (SHashAlgId{1, 401}));
    EXPECT_TRUE(dialog.isSetAsDefault());
}

TEST_F(SelectAlgorithm, TheToolBarKeepsItsRowOverAnUnknownAlgorithmAndATranslation)
{
    CSelectAlgFrame frame;
    frame.setHashAlgProvider(&provider);
    frame.reloadAlgorithms();
    frame.setCurrentAlgorithm({1, 401});
    frame.setCurrentAlgorithm({300, 999});
    auto* const label = frame.findChild<QLabel*>("labelSelectAlg");
    label->setText("other language");
    frame.retranslateFrame();
    EXPECT_EQ(label->text(), "Algorithm:");
    EXPECT_EQ(frame.getCurrentAlgorithm(), (SHashAlgId{1, 401}));
    EXPECT_EQ(frame.findChild<QComboBox*>()->view()->verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
}

} // namespace
} // namespace quillon::tests
