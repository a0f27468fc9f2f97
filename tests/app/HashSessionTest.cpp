// Runs from their start to the digest, and what else the menus offer.

#include "app/MainWindowTest.h"
#include "support/UrlDesktop.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QThread>
#include <QToolBar>

#include <random>

namespace quillon::tests {
namespace {

struct HashSession : MainWindowTest
{
    const QString file = write("abc.bin", "abc");
    MainWindowDriver driver{QStringList{file}};
    // The digest of "abc": FIPS 180-2, appendix B.1
    const QString hexOfAbc = "BA7816BF8F01CFEA414140DE5DAE2223B00361A396177A9CB410FF61F20015AD";
    const QString base64OfAbc = "ungWv48Bz+pBQUDeXa4iI7ADYaOWF3qctBD/YfIAFa0=";
};

TEST_F(HashSession, TakesAlgorithmFileAndContentsAsTheyAreAtItsStart)
{
    EXPECT_EQ(driver.caption(), plainCaption);
    EXPECT_EQ(driver.resultOfRun(), sha256Result("abc"));
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
    driver.type("gone");
    driver.press(Qt::Key_F5);
    EXPECT_EQ(driver.result(), errorResult("File to calculate hash is not found."));
}

TEST_F(HashSession, SaysWhyAnAlgorithmCannotBe)
{
    auto& combo = driver.child<QComboBox>("comboBoxSelectAlg");
    for (const auto& [lib, alg, sentence] : {std::tuple{1, 302, "Hash algorithm is not defined."},
                                             {0, 0, "Cryptographic engine is not defined."},
                                             {10, 11, "Failed to prepare hash engine."}}) {
        combo.setItemData(combo.currentIndex(), QVariantMap{{"lib", lib}, {"alg", alg}}, Qt::UserRole);
        driver.press(Qt::Key_F5);
        EXPECT_EQ(driver.result(), errorResult(sentence));
    }
}

TEST_F(HashSession, AStartRightAfterARunTellsTheEndOfThatRunFirstAndShowsNoOtherDigest)
{
    auto& hexField = driver.child<QPlainTextEdit>("plainTextEditHashHex");
    QStringList shown;
    QObject::connect(&hexField, &QPlainTextEdit::textChanged, [&] { shown += hexField.toPlainText(); });
    for (int round = 0; round < 50; ++round) {
        // F5 without letting anything else happen, so that the end of the run before is still to be told. The
        // status line is emptied, as a start that is accepted leaves it as it is.
        ASSERT_TRUE(waitUntil([this] {
            driver.child<QLineEdit>("lineEditProgressBar").clear();
            QTest::keyClick(&driver.window(), Qt::Key_F5);
            return driver.status() != errorResult("Hash calculation already running.");
        }));
        ASSERT_EQ(shown.count(hexOfAbc), round) << "the former run's end is not told";
        QCoreApplication::processEvents();
    }
    ASSERT_TRUE(driver.waitForEnd(50));
    EXPECT_EQ(driver.result(), sha256Result("abc"));
    shown.removeAll("");
    EXPECT_EQ(shown.count(hexOfAbc), shown.size()) << shown.join(' ').toStdString();
}

TEST_F(HashSession, StoppedAtRandomMomentsShowsTheRightDigestOrNone)
{
    constexpr int kCycles = 300;
    const std::string bytes = blocksOfBytes(128);
    const std::string digested = sha256Result(bytes);
    driver.type(write("blocks", bytes));
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
        ASSERT_TRUE(waitUntil([this, cycle] {
            QCoreApplication::processEvents();
            return driver.runsEnded() == cycle;
        }));
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
    QClipboard& clipboard = *QGuiApplication::clipboard();
    const std::pair<std::function<void()>, QString> ways[]{
        {[this] { driver.click("buttonCopyHashHex"); }, hexOfAbc},
        {[this] { driver.click("buttonCopyHashBase64"); }, base64OfAbc},
        {[this] { driver.chooseFromMenu("actionHash_copyHexHash"); }, hexOfAbc},
        {[this] { driver.chooseFromMenu("actionHash_copyBase64Hash"); }, base64OfAbc},
    };
    clipboard.setText("former");
    ways[0].first();
    EXPECT_EQ(clipboard.text(), "former") << "there is no digest yet";
    for (const auto& [setting, copied] :
         {std::pair{4, base64OfAbc}, {2, hexOfAbc}, {1, "former"}, {3, "former"}}) {
        clipboard.setText("former");
        CAppSettings().setValue("WhatCopyToClipboard", setting);
        ASSERT_TRUE(driver.run());
        EXPECT_EQ(clipboard.text(), copied) << setting;
    }
    for (const auto& [copy, copied] : ways) {
        copy();
        EXPECT_EQ(clipboard.text(), copied);
    }
}

TEST_F(HashSession, BeginsWithTheStoredDefaultAlgorithmWhereThatExists)
{
    for (const auto& [lib, alg, isUsed, selected] :
         {std::tuple{300, 105, true, "Skein512-512"}, {1, 302, true, "SHA-256"}, {1, 1, false, "SHA-256"}}) {
        CAppSettings store;
        store.setValue("DefaultCryptoLibrary", lib);
        store.setValue("DefaultCryptoHashAlgorithm", alg);
        store.setValue("UseDefaultAlgorithmAtStarting", isUsed);
        EXPECT_EQ(MainWindowDriver().algorithm(), selected) << lib << ' ' << alg;
    }
}

TEST_F(HashSession, TakesTheAlgorithmDialogsChoiceAndKeepsItAsDefaultOnRequestOnly)
{
    for (const auto& [asDefault, button, selected, stored] :
         {std::tuple{true, "buttonCancel", "SHA-256", 11},
          {false, nullptr, "CRC32 (4-bite)", 11}, // a double click
          {true, "buttonOk", "CRC32 (4-bite)", 401}}) {
        const DialogAnswer answer([box = asDefault, name = button](QDialog& dialog) {
            auto& list = *dialog.findChild<QListWidget*>("listWidgetSelectAlg");
            EXPECT_EQ(list.currentItem()->text(), "SHA-256 (32-byte)");
            list.setCurrentRow(list.count() - 1);
            dialog.findChild<QCheckBox*>("checkBoxAsDefault")->setChecked(box);
            const QPoint row = list.visualItemRect(list.currentItem()).center();
            QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, row);
            if (name == nullptr)
                QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, row);
            else
                dialog.findChild<QPushButton*>(name)->click();
        });
        driver.chooseFromMenu("actionHash_selectAlgorithm");
        EXPECT_EQ(driver.algorithm(), selected);
        EXPECT_EQ(CAppSettings().value("DefaultCryptoHashAlgorithm", 11).toInt(), stored);
    }
}

TEST_F(HashSession, LeavesCaptionAndToolBarAsTheyAreBetweenAStopAndTheNextStart)
{
    const auto toggleToolBar = [this] {
        driver.chooseFromMenu("actionTools_showHideToolbar");
        const bool isVisible = driver.child<QToolBar>("toolBar").isVisible();
        EXPECT_EQ(driver.child<QAction>("actionTools_showHideToolbar").isChecked(), isVisible);
        return isVisible;
    };
    EXPECT_FALSE(toggleToolBar());
    EXPECT_TRUE(toggleToolBar());
    for (const char* bar : {"toolBar", "menuBar"}) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, {1, 1}, {1, 1});
        QApplication::sendEvent(&driver.child<QWidget>(bar), &event);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr)
            << "Qt's own menu, which knows nothing of the stop";
    }
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
    QStringList seen;
    for (const char* action : {"actionHelp_About", "actionTools_KeyboardShortcuts", "actionTools_Options"}) {
        const DialogAnswer answer([&seen](QDialog& dialog) {
            seen += dialog.metaObject()->className();
            dialog.reject();
        });
        driver.chooseFromMenu(action);
    }
    for (const char* action : {"actionHelp_HomePage", "actionHelp_Donate", "actionHelp_SupportEmail"})
        driver.chooseFromMenu(action);
    for (const QUrl& url : desktop.opened)
        seen += url.toString();
    EXPECT_EQ(seen.join('\n'), "CAboutDialog\nCkeyboardShortcutInfoDialog\nCOptionsDialog\n"
                               "https://kestrum.quillon.example/\nhttps://kestrum.quillon.example/donate\n"
                               "mailto:support@quillon.example?subject=Kestrum v1.0.0.0");
    driver.chooseFromMenu("actionFile_Exit");
    EXPECT_FALSE(driver.window().isVisible());
}

} // namespace
} // namespace quillon::tests
