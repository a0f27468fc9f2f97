#include "support/UrlDesktop.h"
#include "ui/COptionsDialogDriver.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QListWidget>
#include <QRadioButton>
#include <QTableWidget>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quillon::tests {
namespace {

using thisapp::SAppOptions;
using thisapp::SHashAlgId;
using web::EProxySelectType;

struct OptionsDialog : testing::Test, OptionsDriver
{
};

TEST_F(OptionsDialog, EveryFieldHasALabelForScreenReaders)
{
    QSet<const QWidget*> named;
    for (const QLabel* label : dialog.findChildren<QLabel*>())
        named.insert(label->buddy());
    for (const char* name : {"comboBoxLanguage", "tableWidgetShortcutKeys", "comboBoxDefaultAlg",
                             "comboBoxLogLevel", "lineEditLogFile", "lineEditProxyAddress",
                             "lineEditProxyPort", "lineEditProxyLogin", "lineEditProxyPassword"})
        EXPECT_TRUE(named.contains(find(name))) << name;
    for (const char* name : {"comboBoxProxyConfigType", "lineEditNetworkLogs"})
        EXPECT_FALSE(find(name)->accessibleName().isEmpty()) << name;
}

TEST_F(OptionsDialog, ApplyPutsTheFixedTextsOfTheFormBack)
{
    dialog.show();
    const auto* version = find<QLabel>("labelVersion");
    EXPECT_EQ(version->text(),
              QCoreApplication::applicationName() + " v" + QCoreApplication::applicationVersion());
    EXPECT_TRUE(find<QLabel>("labelViewLogFile")->text().contains("href=\"#\""));
    click("buttonApply");
    EXPECT_EQ(version->text(), "Kestrum");
    EXPECT_EQ(find<QLabel>("labelViewLogFile")->text(), "View log file");
    dialog.hide();
    dialog.show();
    EXPECT_EQ(version->text(), "Kestrum") << "the same dialog is filled only once";
}

TEST_F(OptionsDialog, CancelReappliesTheLanguageWhereAnotherOneIsShown)
{
    dialog.setLocaleId(1031);
    dialog.show();
    choose("comboBoxLanguage", 0);
    click("checkBoxUseLogFile");
    click("buttonCancel");
    EXPECT_EQ(locales.changes, std::vector<std::string>{"de-DE/1031"});
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
    EXPECT_FALSE(dialog.getUseLogFile());
    EXPECT_EQ(dialog.getLocaleId(), 1031U);
    EXPECT_TRUE(owner.applied.empty());
}

TEST_F(OptionsDialog, EachProxyModeHasItsFields)
{
    dialog.setNetProxy({0, "proxy.example", 8080, "ann", "secret"});
    dialog.show();
    const auto enabled = [this] {
        QString letters;
        for (const char* name :
             {"lineEditProxyAddress", "lineEditProxyPort", "lineEditProxyLogin", "lineEditProxyPassword"})
            letters += find(name)->isEnabled() ? '+' : '-';
        return letters;
    };
    EXPECT_EQ(enabled(), "----");
    choose("comboBoxProxyConfigType", 2);
    EXPECT_EQ(enabled(), "++++");
    EXPECT_EQ(text("lineEditProxyAddress") + ':' + text("lineEditProxyPort"), "proxy.example:8080");
    dialog.setSystemQuery([] { return COptionsDialog::SGetSystemProxySettings{{}, {1, 2}}; });
    QTest::keyClick(find("comboBoxProxyConfigType"), Qt::Key_Up);
    EXPECT_EQ(enabled(), "--++");
    EXPECT_EQ(text("lineEditProxyAddress") + ':' + text("lineEditProxyPort"), ":");
    EXPECT_EQ(text("lineEditProxyLogin") + ':' + text("lineEditProxyPassword"), "ann:secret");
}

TEST_F(OptionsDialog, LinksOpenTheirAddresses)
{
    UrlDesktop desktop;
    const QTemporaryDir folder;
    dialog.setLogFilePath(folder.path() + "/a log #1.log");
    dialog.show();
    for (const char* name : {"labelHomePageUrl", "labelEmailUrl", "labelDonateUrl", "labelViewLogFile"}) {
        auto* link = reach<QLabel>(name);
        QTest::mouseClick(link, Qt::LeftButton, {}, {8, link->height() / 2});
    }
    const QList<QUrl> expected{
        QUrl("https://kestrum.quillon.example/"),
        QUrl("mailto:support@quillon.example?subject=" + QCoreApplication::applicationName()),
        QUrl("https://kestrum.quillon.example/donate"),
        QUrl::fromLocalFile(QFileInfo(folder.path()).absoluteFilePath())};
    EXPECT_EQ(desktop.opened, expected);
}

TEST_F(OptionsDialog, TheLogLinkNeedsAFolderThatExists)
{
    UrlDesktop desktop;
    dialog.onUiViewLogFileClicked("#");
    dialog.setLogFilePath("/no/such/folder/kestrum.log");
    dialog.onUiViewLogFileClicked("#");
    EXPECT_TRUE(desktop.opened.isEmpty());
}

} // namespace
} // namespace quillon::tests
