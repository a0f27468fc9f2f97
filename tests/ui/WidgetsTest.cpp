// What a user sees of the smaller widgets and dialogs.

#include "ui_CMainWindow.h"

#include "support/CaseTable.h"
#include "support/QtWait.h"
#include "support/UrlDesktop.h"
#include "ui/Appearance.h"
#include "ui/CAboutDialog.h"
#include "ui/CkeyboardShortcutInfoDialog.h"

#include <QApplication>
#include <QFontInfo>
#include <QIcon>
#include <QImageReader>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>

#include <gtest/gtest.h>

namespace quillon::tests {
namespace {

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

TEST(IconFile, ShowsTheImageThatFitsAndNoneLargerThanItIs)
{
    initialiseResources();
    const QString name = ":/kestrum/main.ico";
    const QIcon icon(name);
    for (const auto& [wanted, shown] : {std::pair{16, 16}, {20, 20}, {32, 32}, {64, 64}, {100, 64}}) {
        EXPECT_EQ(icon.actualSize({wanted, wanted}), QSize(shown, shown)) << wanted;
        EXPECT_EQ(icon.pixmap(wanted).size(), QSize(shown, shown)) << wanted;
    }
    EXPECT_EQ(icon.availableSizes(), (QList<QSize>{{16, 16}, {24, 24}, {32, 32}, {48, 48}, {64, 64}}));
    QImageReader reader(name);
    ASSERT_TRUE(reader.jumpToImage(2));
    const QImage image = reader.read().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    EXPECT_EQ(icon.pixmap(32).toImage().convertToFormat(image.format()), image);
    QImage painted(32, 32, image.format());
    painted.fill(Qt::transparent);
    QPainter painter(&painted);
    icon.paint(&painter, painted.rect());
    EXPECT_EQ(painted, image);
    EXPECT_NE(icon.pixmap(32, QIcon::Disabled).toImage(), icon.pixmap(32).toImage());
    EXPECT_TRUE(QIcon(":/kestrum/none.ico").pixmap(16).isNull());
}

TEST(MainWindowForm, TheTabKeyWalksFromTopToBottomOverFieldsWithAccessibleNames)
{
    QMainWindow window;
    Ui_CMainWindow form;
    form.setupUi(&window);
    window.show();
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
    QTest::mouseClick(dialog.findChild<QPushButton*>("buttonOk"), Qt::LeftButton);
    EXPECT_TRUE(dialog.result() == QDialog::Accepted && !dialog.isVisible());
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
    QList<QUrl> expected{QUrl("https://kestrum.quillon.example/"),
                         QUrl("mailto:support@quillon.example?subject=Kestrum"),
                         QUrl("https://kestrum.quillon.example/donate")};
    EXPECT_EQ(desktop.opened, expected);
    // The keyboard reaches each with one Tab.
    dialog.activateWindow();
    ASSERT_TRUE(waitFor([&] { return dialog.isActiveWindow(); }));
    dialog.findChild<QPushButton*>("buttonOk")->setFocus();
    for (int link = 0; link < 3; ++link) {
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        QCoreApplication::processEvents();
        EXPECT_TRUE(dynamic_cast<QLabel&>(*dialog.focusWidget()).hasSelectedText());
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    }
    EXPECT_EQ(desktop.opened.mid(3), expected);
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
