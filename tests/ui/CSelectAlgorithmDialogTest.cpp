#include "ui/CSelectAlgorithmDialog.h"

#include "ui/AlgorithmProviders.h"

#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace quillon::tests {
namespace {

using thisapp::SHashAlgId;

class SelectAlgorithmDialog : public testing::Test
{
protected:
    SelectAlgorithmDialog()
        : list(dialog.findChild<QListWidget*>("listWidgetSelectAlg"))
        , label(dialog.findChild<QLabel*>("labelSelectAlg"))
        , asDefault(dialog.findChild<QCheckBox*>("checkBoxAsDefault"))
    {
        dialog.setHashAlgProvider(&provider);
    }

    void click(const char* button)
    {
        QTest::mouseClick(dialog.findChild<QPushButton*>(button), Qt::LeftButton);
    }

    ListedAlgorithms provider;
    CSelectAlgorithmDialog dialog;
    QListWidget* list;
    QLabel* label;
    QCheckBox* asDefault;
};

TEST_F(SelectAlgorithmDialog, WithoutAWordFromTheCallerItOpensOnTheBuiltInDefault)
{
    dialog.show();
    EXPECT_EQ(list->count(), 32);
    EXPECT_EQ(list->currentItem()->text(), "SHA-256 (32-byte)");
    EXPECT_EQ(label->text(), "Algorithm: SHA-256");
    EXPECT_FALSE(asDefault->isChecked());
}

TEST_F(SelectAlgorithmDialog, TheFirstRowIsSelectedBeforeTheCurrentAlgorithm)
{
    int changes = 0;
    QObject::connect(list, &QListWidget::currentItemChanged, [&changes] { ++changes; });
    dialog.setCurrentAlgorithm({300, 110});
    dialog.show();
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(label->text(), "Algorithm: Skein1024-1024");
}

TEST_F(SelectAlgorithmDialog, AnAlgorithmThatNoRowHasLeavesTheFirstRowSelected)
{
    dialog.setCurrentAlgorithm({10, 1});
    dialog.show();
    EXPECT_EQ(list->currentRow(), 0);
}

TEST_F(SelectAlgorithmDialog, ASecondShowKeepsWhatTheUserSelected)
{
    dialog.show();
    list->setCurrentRow(5);
    asDefault->setChecked(true);
    dialog.hide();
    dialog.show();
    EXPECT_EQ(list->currentRow(), 5);
    EXPECT_TRUE(asDefault->isChecked());
}

TEST_F(SelectAlgorithmDialog, OkHandsOverTheRowAndTheCheckBox)
{
    dialog.show();
    QTest::keyClick(list, Qt::Key_Down);
    asDefault->click();
    click("buttonOk");
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.getCurrentAlgorithm(), (SHashAlgId{1, 12}));
    EXPECT_TRUE(dialog.isSetAsDefault());
}

TEST_F(SelectAlgorithmDialog, CancelHandsOverNothing)
{
    dialog.setCurrentAlgorithm({1, 40});
    dialog.show();
    list->setCurrentRow(3);
    asDefault->click();
    click("buttonCancel");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
    EXPECT_EQ(dialog.getCurrentAlgorithm(), (SHashAlgId{1, 40}));
    EXPECT_FALSE(dialog.isSetAsDefault());
}

TEST_F(SelectAlgorithmDialog, OkWithoutARowHandsOverNoAlgorithm)
{
    dialog.setHashAlgProvider(nullptr);
    dialog.show();
    EXPECT_EQ(label->text(), "Algorithm:");
    click("buttonOk");
    EXPECT_EQ(dialog.getCurrentAlgorithm(), SHashAlgId{});
}

TEST_F(SelectAlgorithmDialog, LosingTheCurrentRowEmptiesTheName)
{
    dialog.show();
    dialog.onUiCurrentAlgChanged(nullptr, nullptr);
    EXPECT_EQ(label->text(), "Algorithm:");
}

TEST_F(SelectAlgorithmDialog, TheFormHasItsTextsAndSizes)
{
    EXPECT_EQ(dialog.windowTitle(), "Select algorithm");
    EXPECT_EQ(dialog.size(), QSize(476, 343));
    EXPECT_FALSE(dialog.windowFlags().testFlag(Qt::WindowContextHelpButtonHint));
    EXPECT_EQ(list->selectionBehavior(), QAbstractItemView::SelectRows);
    EXPECT_EQ(asDefault->text(), "Use as default algorithm");
    for (const char* name : {"buttonOk", "buttonCancel"}) {
        const auto* button = dialog.findChild<QPushButton*>(name);
        EXPECT_EQ(button->minimumSize(), QSize(121, 29)) << name;
        EXPECT_EQ(button->maximumSize(), QSize(121, 29)) << name;
        EXPECT_FALSE(button->icon().availableSizes().isEmpty()) << name;
    }
}

} // namespace
} // namespace quillon::tests
