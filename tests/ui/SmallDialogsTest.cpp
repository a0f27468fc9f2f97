#include "support/UrlDesktop.h"
#include "ui/Appearance.h"
#include "ui/CAboutDialog.h"
#include "ui/CkeyboardShortcutInfoDialog.h"
#include "ui/Table.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>

namespace quillon::tests {
namespace {

class SmallDialogs : public testing::Test
{
protected:
    SmallDialogs()
    {
        initialiseResources();
        QCoreApplication::setApplicationName("Kestrum");
        QCoreApplication::setApplicationVersion("1.2.3.4");
    }
};

TEST_F(SmallDialogs, AboutTellsTheProduct)
{
    CAboutDialog dialog;
    dialog.show();
    for (const QString& line : tableLines("about-dialog.txt"))
        EXPECT_EQ(dialog.findChild<QLabel*>(line.section(" | ", 0, 0))->text(), line.section(" | ", 1));
    EXPECT_FALSE(dialog.windowFlags().testFlag(Qt::WindowContextHelpButtonHint));
    EXPECT_FALSE(dialog.findChild<QLabel*>("labelIcon")->pixmap(Qt::ReturnByValue).isNull());
}

TEST_F(SmallDialogs, LinksOfAboutOpenTheirAddressesAndLeaveItOpenUntilOk)
{
    UrlDesktop desktop;
    CAboutDialog dialog;
    dialog.show();
    for (const char* name : {"labelHomePageUrl", "labelEmailUrl", "labelDonateUrl"}) {
        auto* link = dialog.findChild<QLabel*>(name);
        QTest::mouseClick(link, Qt::LeftButton, {}, {8, link->height() / 2});
    }
    const QList<QUrl> expected{QUrl("https://kestrum.quillon.example/"),
                               QUrl("mailto:support@quillon.example?subject=Kestrum"),
                               QUrl("https://kestrum.quillon.example/donate")};
    EXPECT_EQ(desktop.opened, expected);
    EXPECT_TRUE(dialog.isVisible());
    QTest::mouseClick(dialog.findChild<QPushButton*>("buttonOk"), Qt::LeftButton);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(SmallDialogs, KeyboardShortcutsAreListedUntilOk)
{
    CkeyboardShortcutInfoDialog dialog;
    dialog.show();
    EXPECT_FALSE(dialog.windowFlags().testFlag(Qt::WindowContextHelpButtonHint));
    const QString text = dialog.findChild<QTextEdit*>()->toPlainText();
    EXPECT_EQ(text.split('\n', Qt::SkipEmptyParts), tableLines("keyboard-shortcuts.txt"));
    QTest::mouseClick(dialog.findChild<QPushButton*>("buttonOk"), Qt::LeftButton);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_FALSE(dialog.isVisible());
}

} // namespace
} // namespace quillon::tests
