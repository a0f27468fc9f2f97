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
#include <QThread>
#include <QToolBar>

#include <random>

namespace quillon::tests {
namespace {

// The digest of "abc": FIPS 180-2, appendix B.1
constexpr const char* kHexOfAbc = "BA7816BF8F01CFEA414140DE5DAE2223B00361A396177A9CB410FF61F20015AD";
constexpr const char* kBase64OfAbc = "ungWv48Bz+pBQUDeXa4iI7ADYaOWF3qctBD/YfIAFa0=";

class HashSession : public MainWindowTest
{
protected:
    const QString file = write("abc.bin", "abc");
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

TEST_F(HashSession, SaysWhyAnAlgorithmCannotBe)
{
    MainWindowDriver driver({file});
    auto& combo = driver.child<QComboBox>("comboBoxSelectAlg");
    for (const auto& [lib, alg, sentence] : {std::tuple{2, 11, "Cryptographic engine is not defined."},
                                             {1, 302, "Hash algorithm is not defined."},
                                             {0, 0, "Cryptographic engine is not defined."},
                                             {10, 11, "Failed to prepare hash engine."}}) {
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

TEST_F(HashSession, StoppedAtRandomMomentsShowsTheRightDigestOrNone)
{
    constexpr int kCycles = 300;
    const std::string bytes = blocksOfBytes(128);
    const std::string digested = sha256Result(bytes);
    MainWindowDriver driver({write("blocks", bytes)});
    std::mt19937 random(20260119);
    unsigned longestMomentUs = 1000;
    int stopped = 0;
    for (int cycle = 1; cycle <= kCycles; ++cycle) {
        driver.press(Qt::Key_F5);
        // The stop's random moment, from before the worker has begun to after it has ended; half of the stops
        // come while the window knows nothing of the start yet.
        if (cycle % 2 == 0)
            QCoreApplication::processEvents();
        QThread::usleep(random() % longestMomentUs);
        driver.press(Qt::Key_F8);
        ASSERT_TRUE(driver.waitForEnd(cycle)) << "cycle " << cycle;
        const bool isStopped = driver.result() == errorResult("Hash calculation was canceled");
        ASSERT_TRUE(isStopped || driver.result() == digested) << "cycle " << cycle << ": " << driver.result();
        stopped += isStopped ? 1 : 0;
        // Fast or slow, the machine sees runs that are stopped and runs that are not.
        longestMomentUs += isStopped ? longestMomentUs / 4 : -(longestMomentUs / 8);
    }
    EXPECT_GT(stopped, kCycles / 50) << "hardly any stop came in time";
    EXPECT_LT(stopped, kCycles - kCycles / 50) << "hardly any run was left to its end";
}

TEST_F(HashSession, CopiesTheDigestAtItsEndAsTheSettingSaysAndByButtonAndMenu)
{
    MainWindowDriver driver({file});
    QClipboard& clipboard = *QGuiApplication::clipboard();
    const std::function<void()> ways[]{
        [&] { driver.click("buttonCopyHashHex"); },
        [&] { driver.click("buttonCopyHashBase64"); },
        [&] { driver.chooseFromMenu("actionHash_copyBase64Hash"); },
        [&] { driver.chooseFromMenu("actionHash_copyHexHash"); },
    };
    const auto copyInEveryWay = [&] {
        QString copied;
        for (const std::function<void()>& copy : ways) {
            copy();
            copied += clipboard.text() + ' ';
        }
        return copied;
    };
    clipboard.setText("former");
    EXPECT_EQ(copyInEveryWay(), "former former former former ");
    for (const auto& [setting, copied] :
         {std::pair{4, kBase64OfAbc}, {2, kHexOfAbc}, {1, "former"}, {3, "former"}}) {
        clipboard.setText("former");
        CAppSettings().setValue("WhatCopyToClipboard", setting);
        ASSERT_TRUE(driver.run());
        EXPECT_EQ(clipboard.text(), copied) << setting;
    }
    EXPECT_EQ(copyInEveryWay(), QString("%1 %2 %2 %1 ").arg(kHexOfAbc, kBase64OfAbc));
}

TEST_F(HashSession, BeginsWithTheStoredDefaultAlgorithmWhereThatExists)
{
    for (const auto& [lib, alg, isUsed, selected] : {std::tuple{300, 105, true, "Skein512-512"},
                                                     {1, 300, true, "MD2 (16-bite)"},
                                                     {1, 302, true, "SHA-256"},
                                                     {2, 1, true, "SHA-256"},
                                                     {1, 1, false, "SHA-256"}}) {
        CAppSettings store;
        store.setValue("DefaultCryptoLibrary", lib);
        store.setValue("DefaultCryptoHashAlgorithm", alg);
        store.setValue("UseDefaultAlgorithmAtStarting", isUsed);
        EXPECT_EQ(MainWindowDriver().algorithm(), selected) << lib << ' ' << alg;
    }
}

TEST_F(HashSession, TakesTheAlgorithmDialogsChoiceAndKeepsItAsDefaultOnRequestOnly)
{
    MainWindowDriver driver;
    driver.selectAlgorithm("SHA1 (20-bite)");
    for (const auto& [asDefault, button, selected, stored] :
         {std::tuple{true, "buttonCancel", "SHA1 (20-bite)", 11},
          {false, "buttonOk", "CRC32 (4-bite)", 11},
          {true, "buttonOk", "CRC32 (4-bite)", 401}}) {
        const DialogAnswer answer([box = asDefault, name = button](QDialog& dialog) {
            auto& list = *dialog.findChild<QListWidget*>("listWidgetSelectAlg");
            EXPECT_EQ(list.currentItem()->text(), "SHA-256 (32-byte)");
            QTest::keyClick(&list, Qt::Key_End);
            if (box)
                QTest::keyClick(dialog.findChild<QCheckBox*>("checkBoxAsDefault"), Qt::Key_Space);
            QTest::mouseClick(dialog.findChild<QPushButton*>(name), Qt::LeftButton);
        });
        driver.chooseFromMenu("actionHash_selectAlgorithm");
        EXPECT_EQ(driver.algorithm(), selected);
        EXPECT_EQ(CAppSettings().value("DefaultCryptoHashAlgorithm", 11).toInt(), stored);
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
