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

TEST_F(OptionsDialog, TheFormHasEveryControlWithItsText)
{
    const struct
    {
        const char* tab;
        const char* name;
        const char* kind;
        const char* text;
    } rows[] = {
        {"tabGeneral", "checkBoxIntergaretToContextMenu", "QCheckBox",
         "Integrate the program to shell context menu"},
        {"tabGeneral", "checkBoxAddSendTo", "QCheckBox", "Add the programm into \"Send To\" menu"},
        {"tabGeneral", "labelLanguage", "QLabel", "Language:"},
        {"tabGeneral", "labelShortcutKeys", "QLabel", "Shortcut keys:"},
        {"tabEncryption", "labelDefaultAlg", "QLabel", "Default algorithm:"},
        {"tabEncryption", "checkBoxSetDefaultAlg", "QCheckBox",
         "Set default algorithm at starting of program"},
        {"tabEncryption", "labelAutocopy", "QLabel", "Autocopy the hash value into clipboard:"},
        {"tabEncryption", "radioButtonAutocopyNothing", "QRadioButton", "Nothing"},
        {"tabEncryption", "radioButtonAutocopyHex", "QRadioButton", "HEX value"},
        {"tabEncryption", "radioButtonAutocopyBase64", "QRadioButton", "Base64 value"},
        {"tabAdvanced", "labelLogLevel", "QLabel", "Logger level:"},
        {"tabAdvanced", "checkBoxUseLogFile", "QCheckBox", "Use log file"},
        {"tabAdvanced", "labelLogFile", "QLabel", "Log file:"},
        {"tabAdvanced", "labelViewLogFile", "QLabel", "View log file"},
        {"tabNetwork", "labelProxyAddress", "QLabel", "Proxy address"},
        {"tabNetwork", "labelProxyPort", "QLabel", "Port"},
        {"tabNetwork", "labelProxyLogin", "QLabel", "User name"},
        {"tabNetwork", "labelProxyPassword", "QLabel", "Password"},
        {"tabNetwork", "buttonCheckConnection", "QPushButton", "Check connection"},
        {"tabNetwork", "buttonSystemProxySettings", "QPushButton", "System proxy settings"},
        {"tabAbout", "labelEmail", "QLabel", "Support email:"},
        {"frameControls", "buttonApply", "QPushButton", "Apply"},
        {"frameControls", "buttonOk", "QPushButton", "OK"},
        {"frameControls", "buttonCancel", "QPushButton", "Cancel"},
    };
    for (const auto& row : rows) {
        const QWidget* widget = find(row.tab)->findChild<QWidget*>(row.name);
        ASSERT_NE(widget, nullptr) << row.name;
        EXPECT_STREQ(widget->metaObject()->className(), row.kind) << row.name;
        EXPECT_EQ(widget->property("text").toString(), row.text);
    }
}

TEST_F(OptionsDialog, TheFormOpensOnItsFirstTabInItsSize)
{
    const auto* tabs = find<QTabWidget>("tabWidget");
    QStringList titles;
    for (int index = 0; index < tabs->count(); ++index)
        titles += tabs->tabText(index);
    EXPECT_EQ(titles.join('|'), "General settings|Calculation|Advanced|Network|About");
    EXPECT_EQ(tabs->currentIndex(), 0);
    EXPECT_EQ(dialog.windowTitle(), "Options");
    EXPECT_EQ(dialog.size(), QSize(601, 473));
    EXPECT_FALSE(dialog.windowFlags().testFlag(Qt::WindowContextHelpButtonHint));
}

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

TEST_F(OptionsDialog, TheShortcutsAreListedWithTheSecondRowSelected)
{
    dialog.show();
    const auto* table = find<QTableWidget>("tableWidgetShortcutKeys");
    QStringList rows;
    for (int row = 0; row < table->rowCount(); ++row)
        rows += table->item(row, 0)->text() + '=' + table->item(row, 1)->text();
    EXPECT_EQ(rows.join('|'), "F5=Start calculation|F8=Stop calculation|"
                              "Ctrl+F9 (Cmd+F9)=Open containing folder|"
                              "Ctrl+O (Cmd+O)=Open new file to calculate hash|"
                              "Ctrl+N (Cmd+N)=Open new file to calculate hash");
    EXPECT_EQ(table->currentRow(), 1);
    EXPECT_EQ(table->columnWidth(0), 150);
    EXPECT_EQ(table->columnWidth(1), 400);
    EXPECT_EQ(table->rowHeight(0), 25);
}

TEST_F(OptionsDialog, OkHandsBackWhatItWasGiven)
{
    const SAppOptions given{false,
                            false,
                            1032,
                            {300, 110},
                            true,
                            4,
                            5,
                            true,
                            "Courier",
                            12,
                            {20, "proxy.example", 8080, "ann", "secret"},
                            EProxySelectType::Manual};
    dialog.setShellContextMenu(given.shellContextMenu);
    dialog.setSendToLink(given.sendToLink);
    dialog.setLocaleId(given.localeId);
    dialog.setDefaultAlg(given.defaultAlg);
    dialog.setUseDefaultAlg(given.useDefaultAlg);
    dialog.setWhatCopy(given.whatCopy);
    dialog.setLogLevel(given.logLevel);
    dialog.setUseLogFile(given.useLogFile);
    dialog.setFontName(given.fontName);
    dialog.setFontSize(given.fontSize);
    dialog.setNetProxy(given.netProxy);
    dialog.setProxySelectType(given.proxySelectType);
    dialog.show();
    EXPECT_EQ(find<QComboBox>("comboBoxLanguage")->currentText(), "Ελληνικά");
    EXPECT_EQ(find<QComboBox>("comboBoxDefaultAlg")->currentText(), "Skein1024-1024 (128-byte)");
    EXPECT_EQ(find<QComboBox>("comboBoxLogLevel")->currentText(), "DEBUG");
    EXPECT_EQ(text("lineEditProxyPort"), "8080");
    click("buttonOk");
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_TRUE(owner.applied.empty());
    const SAppOptions back = dialog.getAppOptions();
    EXPECT_EQ(back.shellContextMenu, given.shellContextMenu);
    EXPECT_EQ(back.sendToLink, given.sendToLink);
    EXPECT_EQ(back.localeId, given.localeId);
    EXPECT_EQ(back.defaultAlg, given.defaultAlg);
    EXPECT_EQ(back.useDefaultAlg, given.useDefaultAlg);
    EXPECT_EQ(back.whatCopy, given.whatCopy);
    EXPECT_EQ(back.logLevel, given.logLevel);
    EXPECT_EQ(back.useLogFile, given.useLogFile);
    EXPECT_EQ(back.fontName, given.fontName);
    EXPECT_EQ(back.fontSize, given.fontSize);
    EXPECT_EQ(back.netProxy.type, 0) << "there is no control for the type";
    EXPECT_EQ(back.netProxy.server, given.netProxy.server);
    EXPECT_EQ(back.netProxy.port, given.netProxy.port);
    EXPECT_EQ(back.netProxy.login, given.netProxy.login);
    EXPECT_EQ(back.netProxy.password, given.netProxy.password);
    EXPECT_EQ(back.proxySelectType, given.proxySelectType);
}

TEST_F(OptionsDialog, ApplyHandsOverEveryChangeAndStaysOpen)
{
    dialog.show();
    click("checkBoxIntergaretToContextMenu");
    click("checkBoxAddSendTo");
    choose("comboBoxLanguage", 1);
    choose("comboBoxDefaultAlg", 2);
    click("checkBoxSetDefaultAlg");
    click("radioButtonAutocopyHex");
    choose("comboBoxLogLevel", 6);
    click("checkBoxUseLogFile");
    choose("comboBoxProxyConfigType", 2);
    type("lineEditProxyAddress", "  proxy.example ");
    type("lineEditProxyPort", " 3128 ");
    type("lineEditProxyLogin", " ann ");
    type("lineEditProxyPassword", " pass word ");
    EXPECT_TRUE(locales.changes.empty()) << "a language is not previewed";
    click("buttonApply");
    ASSERT_EQ(owner.applied.size(), 1U);
    const SAppOptions& options = owner.applied.front();
    EXPECT_FALSE(options.shellContextMenu);
    EXPECT_FALSE(options.sendToLink);
    EXPECT_EQ(options.localeId, 1031U);
    EXPECT_EQ(options.defaultAlg, crypto::hashCatalogue()[2].id);
    EXPECT_TRUE(options.useDefaultAlg);
    EXPECT_EQ(options.whatCopy, 2);
    EXPECT_EQ(options.logLevel, 6);
    EXPECT_TRUE(options.useLogFile);
    EXPECT_EQ(options.proxySelectType, EProxySelectType::Manual);
    EXPECT_EQ(options.netProxy.server, "proxy.example");
    EXPECT_EQ(options.netProxy.port, 3128);
    EXPECT_EQ(options.netProxy.login, "ann");
    EXPECT_EQ(options.netProxy.password, "pass word");
    EXPECT_TRUE(dialog.isVisible());
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

TEST_F(OptionsDialog, WithoutAnOwnerApplyChangesNothing)
{
    dialog.setOptionsChanged(nullptr);
    dialog.show();
    click("checkBoxUseLogFile");
    click("buttonApply");
    EXPECT_FALSE(dialog.getUseLogFile());
}

TEST_F(OptionsDialog, ValuesThatNoControlCanShowAreReplaced)
{
    dialog.setLocaleId(9999);
    dialog.setLogLevel(7);
    dialog.setDefaultAlg({10, 11});
    dialog.setProxySelectType(static_cast<EProxySelectType>(3));
    dialog.show();
    type("lineEditProxyPort", "abc");
    choose("comboBoxProxyConfigType", 0);
    click("buttonOk");
    EXPECT_EQ(dialog.getLocaleId(), 1033U);
    EXPECT_EQ(dialog.getLogLevel(), 0);
    EXPECT_EQ(dialog.getDefaultAlg(), crypto::hashCatalogue()[0].id);
    EXPECT_EQ(dialog.getNetProxy().port, 0);
    EXPECT_EQ(dialog.getProxySelectType(), EProxySelectType::None);
}

TEST_F(OptionsDialog, WithoutAnyListTheDefaultsAreHandedOver)
{
    dialog.setAlgProvider(nullptr);
    dialog.setTranslationList(nullptr);
    dialog.setLocaleId(1031);
    dialog.show();
    click("buttonOk");
    EXPECT_EQ(dialog.getLocaleId(), 1033U);
    EXPECT_EQ(dialog.getDefaultAlg(), SHashAlgId{});
}

TEST(OptionsDialogAutocopy, EachStoredValueShowsAndStoresAsItShould)
{
    const struct
    {
        int stored;
        const char* checked;
        int handedOver;
    } rows[] = {{0, "Nothing", 1}, {1, "Nothing", 1}, {-5, "Nothing", 1}, {2, "Hex", 2},
                {4, "Base64", 4},  {3, "", 1},        {8, "", 1}};
    for (const auto& row : rows) {
        OptionsDriver driver;
        driver.dialog.setWhatCopy(row.stored);
        driver.dialog.show();
        QString checked;
        for (const QRadioButton* button : driver.dialog.findChildren<QRadioButton*>()) {
            if (button->isChecked())
                checked += button->objectName();
        }
        EXPECT_EQ(checked.remove("radioButtonAutocopy"), row.checked) << row.stored;
        driver.click("buttonOk");
        EXPECT_EQ(driver.dialog.getWhatCopy(), row.handedOver) << row.stored;
    }
}

TEST_F(OptionsDialog, ItListsTheLanguagesThatTheCatalogueKnows)
{
    dialog.show();
    const auto* combo = find<QComboBox>("comboBoxLanguage");
    ASSERT_EQ(combo->count(), 3);
    EXPECT_EQ(combo->itemText(1), "Deutsch");
    EXPECT_EQ(combo->itemData(1).toUInt(), 1031U);
    EXPECT_EQ(combo->itemText(2), "Ελληνικά");
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

TEST_F(OptionsDialog, CancelAfterApplyKeepsTheLanguage)
{
    dialog.show();
    choose("comboBoxLanguage", 1);
    click("buttonApply");
    click("buttonCancel");
    EXPECT_TRUE(locales.changes.empty());
    EXPECT_EQ(owner.applied.size(), 1U);
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
