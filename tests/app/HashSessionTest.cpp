// Runs from their start to the digest, and what else the menus offer.

#include "app/MainWindowTest.h"
#include "support/UrlDesktop.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolBar>

namespace quillon::tests {
namespace {

// The digest of "abc": FIPS 180-2, appendix B.1
constexpr const char* kHexOfAbc = "BA7816BF8F01CFEA414140DE5DAE2223B00361A396177A9CB410FF61F20015AD";
constexpr const char* kBase64OfAbc = "ungWv48Bz+pBQUDeXa4iI7ADYaOWF3qctBD/YfIAFa0=";

class HashSession : public MainWindowTest
{
protected:
    const QString file = write("abc.bin", "abc");
    const QString plainCaption = "Calculated hash for the file";
};

TEST_F(HashSession, TakesAlgorithmFileAndContentsAsTheyAreAtItsStart)
{
    MainWindowDriver driver({file});
    EXPECT_EQ(driver.caption(), plainCaption);
    ASSERT_TRUE(driver.run());
    EXPECT_EQ(driver.result(), sha256Result("abc"));
    EXPECT_EQ(driver.caption(), plainCaption + " (SHA-256)");
    write("abc.bin", "");
    driver.clickToolButton("actionHash_Calculate");
    ASSERT_TRUE(driver.waitForEnd(2));
    EXPECT_EQ(driver.result(), sha256Result(""));
    EXPECT_EQ(driver.caption(), plainCaption) << "of no bytes";
    driver.selectAlgorithm("CRC32 (4-bite)");
    driver.type(write("digits", "123456789"));
    driver.chooseFromMenu("actionHash_Calculate");
    ASSERT_TRUE(driver.waitForEnd(3));
    EXPECT_EQ(driver.hex(), "CBF43926"); // the check value of the catalogue of parametrised CRC algorithms
    EXPECT_EQ(driver.caption(), plainCaption + " (CRC32)");
    ASSERT_TRUE(QFile::remove(driver.input()));
    driver.press(Qt::Key_F5);
    EXPECT_EQ(driver.result(), errorResult("File to calculate hash is not found."));
}

TEST_F(HashSession, AnAlgorithmThatCannotBeIsReported)
{
    const struct
    {
        int lib;
        int alg;
        const char* sentence;
    } rows[]{
        {2, 11, "Cryptographic engine is not defined."},
        {1, 302, "Hash algorithm is not defined."},
        {0, 0, "Cryptographic engine is not defined."},
        {10, 11, "Failed to prepare hash engine."},
    };
    MainWindowDriver driver({file});
    auto& combo = driver.child<QComboBox>("comboBoxSelectAlg");
    for (const auto& [lib, alg, sentence] : rows) {
        combo.setItemData(combo.currentIndex(), QVariantMap{{"lib", lib}, {"alg", alg}}, Qt::UserRole);
        driver.press(Qt::Key_F5);
        EXPECT_EQ(driver.result(), errorResult(sentence));
    }
}

TEST_F(HashSession, AStartRightAfterARunTellsTheEndOfThatRunFirstAndShowsNoOtherDigest)
{
    MainWindowDriver driver({file});
    auto& hexField = driver.child<QPlainTextEdit>("plainTextEditHashHex");
    QStringList shown;
    QObject::connect(&hexField, &QPlainTextEdit::textChanged, [&] { shown += hexField.toPlainText(); });
    for (int round = 0; round < 50; ++round) {
        // F5 without letting anything else happen, so that the end of the run before is still to be told. The
        // status line is emptied, as a start that is accepted leaves it as it is.
        ASSERT_TRUE(waitUntil([&driver] {
            driver.child<QLineEdit>("lineEditProgressBar").clear();
            QTest::keyClick(&driver.window(), Qt::Key_F5);
            return driver.status() != errorResult("Hash calculation already running.");
        }));
        ASSERT_EQ(shown.count(kHexOfAbc), round) << "the former run's end is not told";
        QCoreApplication::processEvents();
    }
    ASSERT_TRUE(driver.waitForEnd(50));
    EXPECT_EQ(driver.result(), sha256Result("abc"));
    shown.removeAll("");
    EXPECT_EQ(shown.count(kHexOfAbc), shown.size()) << shown.join(' ').toStdString();
}

TEST_F(HashSession, CopiesTheDigestByButtonByMenuAndAtItsEndAsTheSettingSays)
{
    MainWindowDriver driver({file});
    QClipboard& clipboard = *QGuiApplication::clipboard();
    const std::pair<std::function<void()>, const char*> ways[]{
        {[&] { driver.click("buttonCopyHashHex"); }, kHexOfAbc},
        {[&] { driver.click("buttonCopyHashBase64"); }, kBase64OfAbc},
        {[&] { driver.chooseFromMenu("actionHash_copyHexHash"); }, kHexOfAbc},
        {[&] { driver.chooseFromMenu("actionHash_copyBase64Hash"); }, kBase64OfAbc},
    };
    clipboard.setText("former");
    for (const auto& [copy, digest] : ways) {
        copy();
        EXPECT_EQ(clipboard.text(), "former");
    }
    for (const auto& [setting, copied] :
         {std::pair{4, kBase64OfAbc}, {2, kHexOfAbc}, {1, "former"}, {0, "former"}, {3, "former"}}) {
        clipboard.setText("former");
        CAppSettings().setValue("WhatCopyToClipboard", setting);
        ASSERT_TRUE(driver.run());
        EXPECT_EQ(clipboard.text(), copied) << setting;
    }
    for (const auto& [copy, digest] : ways) {
        copy();
        EXPECT_EQ(clipboard.text(), digest);
    }
}

TEST_F(HashSession, BeginsWithTheStoredDefaultAlgorithmWhereThatExists)
{
    using Settings = std::vector<std::pair<const char*, QVariant>>;
    const std::pair<Settings, const char*> rows[]{
        {{{"DefaultCryptoLibrary", 300}, {"DefaultCryptoHashAlgorithm", 105}}, "Skein512-512"},
        {{{"DefaultCryptoHashAlgorithm", 300}}, "MD2 (16-bite)"},
        {{{"DefaultCryptoHashAlgorithm", 100}}, "SHA-256"},
        {{{"DefaultCryptoHashAlgorithm", 302}}, "SHA-256"},
        {{{"DefaultCryptoLibrary", 2}, {"DefaultCryptoHashAlgorithm", 1}}, "SHA-256"},
        {{{"UseDefaultAlgorithmAtStarting", false}, {"DefaultCryptoHashAlgorithm", 1}}, "SHA-256"},
    };
    for (const auto& [settings, expected] : rows) {
        CAppSettings().clear();
        for (const auto& [key, value] : settings)
            CAppSettings().setValue(key, value);
        EXPECT_EQ(MainWindowDriver().algorithm(), expected);
    }
}

TEST_F(HashSession, TakesTheAlgorithmDialogsChoiceAndKeepsItAsDefaultOnRequestOnly)
{
    const struct
    {
        bool asDefault;
        const char* button;
        const char* selected;
        int stored;
    } rows[]{
        {true, "buttonCancel", "SHA1 (20-bite)", 11},
        {false, "buttonOk", "CRC32 (4-bite)", 11},
        {true, "buttonOk", "CRC32 (4-bite)", 401},
    };
    for (const auto& row : rows) {
        MainWindowDriver driver;
        driver.selectAlgorithm("SHA1 (20-bite)");
        const DialogAnswer answer([&row](QDialog& dialog) {
            auto& list = *dialog.findChild<QListWidget*>("listWidgetSelectAlg");
            EXPECT_EQ(list.currentItem()->text(), "SHA-256 (32-byte)");
            QTest::keyClick(&list, Qt::Key_End);
            if (row.asDefault)
                QTest::keyClick(dialog.findChild<QCheckBox*>("checkBoxAsDefault"), Qt::Key_Space);
            QTest::mouseClick(dialog.findChild<QPushButton*>(row.button), Qt::LeftButton);
        });
        driver.chooseFromMenu("actionHash_selectAlgorithm");
        EXPECT_EQ(driver.algorithm(), row.selected);
        EXPECT_EQ(CAppSettings().value("DefaultCryptoHashAlgorithm", 11).toInt(), row.stored);
    }
}

TEST_F(HashSession, LeavesCaptionAndToolBarAsTheyAreBetweenAStopAndTheNextStart)
{
    MainWindowDriver driver({file});
    const auto toggleToolBar = [&driver] {
        driver.chooseFromMenu("actionTools_showHideToolbar");
        const bool isVisible = driver.child<QToolBar>("toolBar").isVisible();
        EXPECT_EQ(driver.child<QAction>("actionTools_showHideToolbar").isChecked(), isVisible);
        return isVisible;
    };
    EXPECT_FALSE(toggleToolBar());
    EXPECT_TRUE(toggleToolBar());
    ASSERT_TRUE(driver.run());
    driver.clickToolButton("actionHash_Stop");
    EXPECT_EQ(driver.result(), sha256Result("abc"));
    driver.type("other");
    EXPECT_EQ(driver.caption(), plainCaption + " (SHA-256)");
    EXPECT_TRUE(toggleToolBar());
    driver.type(file);
    ASSERT_TRUE(driver.run());
    EXPECT_FALSE(toggleToolBar());
}

TEST_F(HashSession, SharesTheMenusWithDialogsLinksAndTheExit)
{
    UrlDesktop desktop;
    MainWindowDriver driver;
    QStringList classes;
    for (const char* action : {"actionHelp_About", "actionTools_KeyboardShortcuts", "actionTools_Options"}) {
        const DialogAnswer answer([&classes](QDialog& dialog) {
            classes += dialog.metaObject()->className();
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        driver.chooseFromMenu(action);
    }
    EXPECT_EQ(classes, QStringList({"CAboutDialog", "CkeyboardShortcutInfoDialog", "COptionsDialog"}));
    for (const char* action : {"actionHelp_HomePage", "actionHelp_Donate", "actionHelp_SupportEmail"})
        driver.chooseFromMenu(action);
    EXPECT_EQ(
        desktop.opened,
        QList<QUrl>({QUrl("https://kestrum.quillon.example/"), QUrl("https://kestrum.quillon.example/donate"),
                     QUrl("mailto:support@quillon.example?subject=" + driver.window().windowTitle())}));
    driver.chooseFromMenu("actionFile_Exit");
    EXPECT_FALSE(driver.window().isVisible());
}

} // namespace
} // namespace quillon::tests
