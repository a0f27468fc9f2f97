// What a user sees of the smaller widgets and dialogs.

#include "ui_CMainWindow.h"

#include "support/CaseTable.h"
#include "support/UrlDesktop.h"
#include "ui/AlgorithmList.h"
#include "ui/Appearance.h"
#include "ui/CAboutDialog.h"
#include "ui/CProgressBarFrame.h"
#include "ui/CkeyboardShortcutInfoDialog.h"

#include <QApplication>
#include <QFontInfo>
#include <QLabel>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>

#include <gtest/gtest.h>

#include <cmath>

namespace quillon::tests {
namespace {

TEST(AlgorithmItemData, WhatIsNoAlgorithmReadsAsZero)
{
    using Id = thisapp::SHashAlgId;
    const std::pair<QVariantMap, Id> cases[] = {
        {{{"lib", 300}, {"alg", 11}}, {300, 11}}, // of no use, but both exist
        {{{"lib", 2}, {"alg", 11}}, {0, 11}},
        {{{"lib", 1}, {"alg", 302}}, {1, 0}},
        {{{"alg", 11}}, {}},
        {{{"lib", 1}}, {}},
        {{{"lib", Q_INT64_C(4294967297)}, {"alg", Q_INT64_C(-4294967285)}}, {}},
    };
    for (const auto& [data, id] : cases)
        EXPECT_EQ(parseAlgorithmItemData(data), id) << id.lib;
}

TEST(Appearance, AnAdjustedFontDiffersInSizeAndWeightOrStyleOnly)
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

TEST(Appearance, ADarkPaletteAloneIsReplacedByALightOne)
{
    const QPalette former = QApplication::palette();
    const auto lightness = [](auto role) { return QApplication::palette().color(role).lightness(); };
    QApplication::setPalette(QPalette(QColor(250, 240, 220)));
    useLightPaletteOnDarkDesktop();
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), QColor(250, 240, 220));
    QApplication::setPalette(QPalette(QColor(40, 40, 40)));
    useLightPaletteOnDarkDesktop();
    EXPECT_GT(lightness(QPalette::Window), lightness(QPalette::WindowText) + 128);
    EXPECT_GT(lightness(QPalette::HighlightedText), lightness(QPalette::Highlight) + 128);
    QApplication::setPalette(former);
}

TEST(ProgressBarFrame, CutsThePercentToThePerMilleAndLeavesTheBarWhereItIsNone)
{
    CProgressBarFrame frame;
    for (const auto& [percent, value] : {std::pair{0.099F, 0},
                                         {0.1F, 1},
                                         {99.99F, 999},
                                         {100.0F, 1000},
                                         {25.0F, 250},
                                         {0.0F, 0},
                                         {37.512F, 375},
                                         {-0.001F, 375},
                                         {NAN, 375},
                                         {100.001F, 375}}) {
        frame.setProgress(QString("word ").repeated(100), percent);
        EXPECT_EQ(frame.findChild<QProgressBar*>()->value(), value) << percent;
    }
    EXPECT_EQ(frame.findChild<QLineEdit*>()->cursorPosition(), 0) << "a long text shows its beginning";
}

class MainWindowForm : public testing::Test, public IFilesDragDropEvent
{
protected:
    MainWindowForm()
    {
        form.setupUi(&window);
        form.frameInputFile->setDropHandler(this);
        form.lineEditInput->setDropHandler(this);
    }

    void onFilesDropped(std::int32_t /*id*/, const QList<QUrl>& /*urls*/) override { ++drops; }

    /// What the source of a move is told in the end, where the drag is taken.
    Qt::DropAction drop(QWidget* target) const
    {
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(target, &enter);
        QDropEvent drop(QPoint(5, 5), Qt::CopyAction | Qt::MoveAction, &mime, Qt::LeftButton, Qt::NoModifier);
        drop.setDropAction(Qt::MoveAction);
        if (enter.isAccepted())
            QApplication::sendEvent(target, &drop);
        return enter.isAccepted() && drop.isAccepted() ? drop.dropAction() : Qt::IgnoreAction;
    }

    QMainWindow window;
    Ui_CMainWindow form;
    QMimeData mime;
    int drops = 0;
};

TEST_F(MainWindowForm, TakesDropsOfFilesOnTheWholePanelAsCopiesAndNoOthers)
{
    mime.setText("file:///a");
    EXPECT_EQ(drop(form.lineEditInput), Qt::IgnoreAction) << "a text";
    mime.setUrls({});
    EXPECT_EQ(drop(form.frameInputFile), Qt::IgnoreAction) << "a list of no files";
    EXPECT_EQ(drops, 0);
    mime.setUrls({QUrl("file:///a")});
    EXPECT_EQ(drop(form.lineEditInput), Qt::CopyAction) << "the source of a move would delete the file";
    EXPECT_EQ(form.lineEditInput->text(), "");
    form.lineEditInput->setEnabled(false);
    EXPECT_EQ(drop(form.lineEditInput), Qt::CopyAction);
    EXPECT_EQ(drop(form.textEditInputFileDetails->viewport()), Qt::CopyAction);
    EXPECT_EQ(drops, 3);
}

TEST_F(MainWindowForm, TheTabKeyWalksFromTopToBottomOverFieldsWithAccessibleNames)
{
    window.show();
    // Not every offscreen platform makes a shown window the active one.
    QApplication::setActiveWindow(&window);
    form.lineEditInput->setFocus();
    for (const char* name :
         {"buttonDefineInputFile", "buttonGotoInputDir", "textEditInputFileDetails", "plainTextEditHashHex",
          "buttonCopyHashHex", "plainTextEditHashBase64", "buttonCopyHashBase64", "lineEditInput"}) {
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(window.focusWidget()->objectName(), name);
        EXPECT_FALSE(window.focusWidget()->accessibleName().isEmpty()) << name;
    }
}

void leaveByOk(const QDialog& dialog)
{
    EXPECT_FALSE(dialog.windowFlags().testFlag(Qt::WindowContextHelpButtonHint));
    EXPECT_TRUE(dialog.isVisible());
    QTest::mouseClick(dialog.findChild<QPushButton*>("buttonOk"), Qt::LeftButton);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_FALSE(dialog.isVisible());
}

TEST(SmallDialogs, AboutTellsTheProductAndOpensItsLinks)
{
    initialiseResources();
    QCoreApplication::setApplicationName("Kestrum");
    QCoreApplication::setApplicationVersion("1.2.3.4");
    const UrlDesktop desktop;
    CAboutDialog dialog;
    dialog.show();
    for (const CaseRow& row : readCaseTable("ui/about-dialog.txt")) {
        auto* const label = dialog.findChild<QLabel*>(row[0].c_str());
        EXPECT_TRUE(row.size() == 1 || label->text().toStdString() == row[1]) << row[0];
        QTest::mouseClick(label, Qt::LeftButton, {}, {8, label->height() / 2});
    }
    EXPECT_EQ(desktop.opened, QList<QUrl>({QUrl("https://kestrum.quillon.example/"),
                                           QUrl("mailto:support@quillon.example?subject=Kestrum"),
                                           QUrl("https://kestrum.quillon.example/donate")}));
    EXPECT_FALSE(dialog.findChild<QLabel*>("labelIcon")->pixmap(Qt::ReturnByValue).isNull());
    leaveByOk(dialog);
}

TEST(SmallDialogs, KeyboardShortcutsAreListedUntilOk)
{
    QCoreApplication::setApplicationName("Kestrum");
    CkeyboardShortcutInfoDialog dialog;
    dialog.show();
    QStringList lines;
    for (const CaseRow& row : readCaseTable("ui/keyboard-shortcuts.txt"))
        lines += QString::fromStdString(row[0]);
    EXPECT_EQ(dialog.findChild<QTextEdit*>()->toPlainText().split('\n', Qt::SkipEmptyParts), lines);
    leaveByOk(dialog);
}

} // namespace
} // namespace quillon::tests
