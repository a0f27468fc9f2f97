#include "support/UrlDesktop.h"
#include "ui/CAboutDialog.h"
#include "ui/CkeyboardShortcutInfoDialog.h"
#include "ui/PrintQString.h"
#include "ui/ProductLabels.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>

#include <gtest/gtest.h>

namespace quillon::tests {
namespace {

/// Gives the program a name and a version for one test.
class Identity
{
public:
    explicit Identity(const char* version)
    {
        QCoreApplication::setApplicationName("Kestrum");
        QCoreApplication::setApplicationVersion(version);
    }
    ~Identity()
    {
        QCoreApplication::setApplicationName(m_name);
        QCoreApplication::setApplicationVersion(m_version);
    }

private:
    const QString m_name = QCoreApplication::applicationName();
    const QString m_version = QCoreApplication::applicationVersion();
};

TEST(LinkLabel, ALinkIsBlueAndUnderlined)
{
    EXPECT_EQ(makeLinkLabelText("View", "#"),
              "<html><head/><body><p><a href=\"#\"><span style=\"text-decoration: underline; "
              "color:#0000ff;\">View</span></a></p></body></html>");
}

TEST(AboutDialog, TellsTheProductAndIsFilledOnce)
{
    const Identity identity("1.2.3.4");
    CAboutDialog dialog;
    EXPECT_EQ(dialog.size(), QSize(443, 400));
    EXPECT_EQ(dialog.windowTitle(), "About");
    EXPECT_FALSE(dialog.windowFlags().testFlag(Qt::WindowContextHelpButtonHint));
    dialog.show();
    const auto text = [&dialog](const char* name) { return dialog.findChild<QLabel*>(name)->text(); };
    EXPECT_EQ(text("labelVersion"), "Kestrum v1.2.3.4");
    EXPECT_EQ(text("labelCopyright"), "Copyright © 2026 The Kestrum authors");
    EXPECT_EQ(text("labelHomePage"), "Kestrum home page:");
    EXPECT_EQ(text("labelEmail"), "Support email:");
    EXPECT_EQ(text("labelDonate"), "Donate to the Kestrum:");
    EXPECT_FALSE(dialog.findChild<QLabel*>("labelIcon")->pixmap(Qt::ReturnByValue).isNull());
    dialog.hide();
    QCoreApplication::setApplicationVersion({});
    dialog.show();
    EXPECT_EQ(text("labelVersion"), "Kestrum v1.2.3.4");
}

TEST(AboutDialog, ALineWithoutAVersionEndsInItsLetter)
{
    const Identity identity("");
    CAboutDialog dialog;
    dialog.show();
    EXPECT_EQ(dialog.findChild<QLabel*>("labelVersion")->text(), "Kestrum v");
}

TEST(AboutDialog, LinksOpenTheirAddressesAndLeaveTheDialogOpen)
{
    const Identity identity("1.2.3.4");
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
}

TEST(KeyboardShortcutInfoDialog, ListsTheShortcuts)
{
    const Identity identity("1.2.3.4");
    CkeyboardShortcutInfoDialog dialog;
    EXPECT_EQ(dialog.size(), QSize(400, 250));
    EXPECT_EQ(dialog.windowTitle(), "Keyboard shortcuts");
    dialog.show();
    const auto* details = dialog.findChild<QTextEdit*>("textEditDetails");
    EXPECT_TRUE(details->isReadOnly());
    EXPECT_EQ(details->toPlainText(), "This is a list of keyboard shortcuts in Kestrum.\n\n"
                                      "'F5' - Start hash calculation\n"
                                      "'F8' - Stop hash calculation\n"
                                      "'Ctrl+F9' (Cmd+F9) - Open containing folder\n"
                                      "'Ctrl+O' (Cmd+O) - Add file to calculate hash\n"
                                      "'Ctrl+N' (Cmd+N) - Add file to calculate hash\n");
}

TEST(SmallDialogs, OkAcceptsThem)
{
    CAboutDialog about;
    CkeyboardShortcutInfoDialog shortcuts;
    for (QDialog* dialog : std::initializer_list<QDialog*>{&about, &shortcuts}) {
        dialog->show();
        QTest::mouseClick(dialog->findChild<QPushButton*>("buttonOk"), Qt::LeftButton);
        EXPECT_FALSE(dialog->isVisible());
        EXPECT_EQ(dialog->result(), QDialog::Accepted);
    }
}

} // namespace
} // namespace quillon::tests
