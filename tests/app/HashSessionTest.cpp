#include "app/MainWindowTest.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QThread>
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
};

TEST_F(HashSession, ShowsTheDigestInBothFormsAndNamesTheAlgorithm)
{
    MainWindowDriver driver({file});
    EXPECT_EQ(driver.window().windowTitle(), "Kestrum v1.0.0.0");
    EXPECT_EQ(driver.caption(), "Calculated hash for the file");
    EXPECT_EQ(driver.status(), noStatus());
    ASSERT_TRUE(driver.run());
    EXPECT_EQ(driver.hex(), kHexOfAbc);
    EXPECT_EQ(driver.base64(), kBase64OfAbc);
    EXPECT_EQ(driver.status(), successStatus());
    EXPECT_EQ(driver.caption(), "Calculated hash for the file (SHA-256)");
    EXPECT_EQ(driver.disabled(), QStringList());
}

TEST_F(HashSession, OfAnEmptyFileShowsTheDigestOfNothingAndACaptionWithoutTheAlgorithm)
{
    MainWindowDriver driver({write("empty", "")});
    ASSERT_TRUE(driver.run());
    EXPECT_EQ(driver.hex(), sha256Hex(""));
    EXPECT_EQ(driver.status(), successStatus());
    EXPECT_EQ(driver.caption(), "Calculated hash for the file");
}

TEST_F(HashSession, EachRunTakesFileAlgorithmAndContentsAsTheyAreThen)
{
    MainWindowDriver driver({file});
    ASSERT_TRUE(driver.run());
    write("abc.bin", "abcd");
    ASSERT_TRUE(driver.run());
    EXPECT_EQ(driver.hex(), sha256Hex("abcd"));
    driver.selectAlgorithm("CRC32 (4-bite)");
    EXPECT_EQ(driver.caption(), "Calculated hash for the file (SHA-256)");
    driver.type(write("digits", "123456789"));
    driver.clickToolButton("actionHash_Calculate");
    ASSERT_TRUE(driver.waitForEnd(3));
    EXPECT_EQ(driver.hex().size(), 8);
    EXPECT_EQ(driver.caption(), "Calculated hash for the file (CRC32)");
    EXPECT_EQ(driver.status(), successStatus());
}

TEST_F(HashSession, AMissingFileIsReportedAndTheFormerDigestGoes)
{
    MainWindowDriver driver({file});
    ASSERT_TRUE(driver.run());
    ASSERT_TRUE(QFile::remove(file));
    driver.chooseFromMenu("menuEncryption", "actionHash_Calculate");
    EXPECT_EQ(driver.status(), errorStatus("File to calculate hash is not found."));
    EXPECT_EQ(driver.hex() + driver.base64(), "");
    EXPECT_EQ(driver.disabled(), QStringList());
}

TEST_F(HashSession, AnAlgorithmThatCannotBeIsReported)
{
    struct Row
    {
        int lib;
        int alg;
        const char* sentence;
    };
    const Row rows[]{
        {2, 11, "Cryptographic engine is not defined."},
        {1, 302, "Hash algorithm is not defined."},
        {0, 0, "Cryptographic engine is not defined."},
        {10, 11, "Failed to prepare hash engine."},
    };
    for (const Row& row : rows) {
        MainWindowDriver driver({file});
        auto& combo = driver.child<QComboBox>("comboBoxSelectAlg");
        combo.setItemData(combo.currentIndex(), QVariantMap{{"lib", row.lib}, {"alg", row.alg}},
                          Qt::UserRole);
        driver.press(Qt::Key_F5);
        EXPECT_EQ(driver.status(), errorStatus(row.sentence));
        EXPECT_EQ(driver.disabled(), QStringList());
    }
}

TEST_F(HashSession, AStartRightAfterARunTellsTheEndOfThatRunFirstAndShowsNoOtherDigest)
{
    MainWindowDriver driver({file});
    auto& hexField = driver.child<QPlainTextEdit>("plainTextEditHashHex");
    QStringList shown;
    QObject::connect(&hexField, &QPlainTextEdit::textChanged, [&] { shown += hexField.toPlainText(); });
    // F5 without letting anything else happen, so that the end of the run before is still to be told. The
    // status line is emptied, as a start that is accepted leaves it as it is.
    const auto isRefused = [&driver] {
        driver.child<QLineEdit>("lineEditProgressBar").clear();
        QTest::keyClick(&driver.window(), Qt::Key_F5);
        return driver.status().text == "Hash calculation already running.";
    };
    for (int round = 0; round < 50; ++round) {
        QDeadlineTimer limit(60'000);
        while (isRefused() && !limit.hasExpired())
            QThread::yieldCurrentThread();
        ASSERT_FALSE(limit.hasExpired());
        ASSERT_EQ(shown.count(kHexOfAbc), round) << "the former run's end is not told";
        QCoreApplication::processEvents();
    }
    EXPECT_TRUE(waitFor([&driver] { return driver.status() == successStatus(); }));
    shown.removeAll("");
    EXPECT_GT(shown.size(), 0);
    EXPECT_EQ(shown.count(kHexOfAbc), shown.size()) << shown.join(' ').toStdString();
}

TEST_F(HashSession, ButtonsAndMenuCopyTheDigestAndNothingWhereThereIsNone)
{
    MainWindowDriver driver({file});
    QClipboard& clipboard = *QGuiApplication::clipboard();
    const std::pair<std::function<void()>, const char*> ways[]{
        {[&] { driver.click("buttonCopyHashHex"); }, kHexOfAbc},
        {[&] { driver.click("buttonCopyHashBase64"); }, kBase64OfAbc},
        {[&] { driver.chooseFromMenu("menuEncryption", "actionHash_copyHexHash"); }, kHexOfAbc},
        {[&] { driver.chooseFromMenu("menuEncryption", "actionHash_copyBase64Hash"); }, kBase64OfAbc},
    };
    clipboard.setText("former");
    for (const auto& [copy, digest] : ways) {
        copy();
        EXPECT_EQ(clipboard.text(), "former");
    }
    ASSERT_TRUE(driver.run());
    EXPECT_EQ(clipboard.text(), "former");
    for (const auto& [copy, digest] : ways) {
        copy();
        EXPECT_EQ(clipboard.text(), digest);
    }
    EXPECT_EQ(driver.status(), successStatus());
}

TEST_F(HashSession, WhatTheSettingAsksForIsCopiedAtTheEnd)
{
    const std::pair<QVariant, const char*> rows[]{
        {2, kHexOfAbc}, {4, kBase64OfAbc}, {1, "former"},   {0, "former"},
        {3, "former"},  {-2, "former"},    {"x", "former"},
    };
    MainWindowDriver driver({file});
    for (const auto& [setting, expected] : rows) {
        CAppSettings().setValue("WhatCopyToClipboard", setting);
        QGuiApplication::clipboard()->setText("former");
        ASSERT_TRUE(driver.run());
        EXPECT_EQ(QGuiApplication::clipboard()->text(), expected) << setting.toString().toStdString();
    }
}

TEST_F(HashSession, TheStoredDefaultAlgorithmIsSelectedWhereItExists)
{
    using Settings = std::vector<std::pair<const char*, QVariant>>;
    const std::pair<Settings, const char*> rows[]{
        {{}, "SHA-256"},
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
        EXPECT_EQ(MainWindowDriver().child<QComboBox>("comboBoxSelectAlg").currentText(), expected);
    }
}

/// Moves the algorithm dialog to its last row, and accepts it or not.
DialogAnswer answerAlgorithmDialog(QString& opensOn, bool asDefault, const char* button)
{
    return DialogAnswer([&opensOn, asDefault, button](QDialog& dialog) {
        auto& list = *dialog.findChild<QListWidget*>("listWidgetSelectAlg");
        opensOn = list.currentItem()->text();
        QTest::keyClick(&list, Qt::Key_End);
        auto& box = *dialog.findChild<QCheckBox*>("checkBoxAsDefault");
        if (asDefault)
            QTest::keyClick(&box, Qt::Key_Space);
        QTest::mouseClick(dialog.findChild<QPushButton*>(button), Qt::LeftButton);
    });
}

TEST_F(HashSession, TheAlgorithmDialogSelectsAndKeepsADefaultOnlyOnRequest)
{
    struct Row
    {
        bool asDefault;
        const char* button;
        const char* selected;
        int stored;
    };
    for (const Row& row :
         {Row{true, "buttonCancel", "SHA1 (20-bite)", 11}, Row{false, "buttonOk", "CRC32 (4-bite)", 11},
          Row{true, "buttonOk", "CRC32 (4-bite)", 401}}) {
        MainWindowDriver driver;
        driver.selectAlgorithm("SHA1 (20-bite)");
        QString opensOn;
        const DialogAnswer answer = answerAlgorithmDialog(opensOn, row.asDefault, row.button);
        driver.chooseFromMenu("menuEncryption", "actionHash_selectAlgorithm");
        EXPECT_TRUE(answer.isGiven());
        EXPECT_EQ(opensOn, "SHA-256 (32-byte)");
        EXPECT_EQ(driver.child<QComboBox>("comboBoxSelectAlg").currentText(), row.selected);
        EXPECT_EQ(CAppSettings().value("DefaultCryptoHashAlgorithm", 11).toInt(), row.stored);
    }
}

TEST_F(HashSession, BetweenAStopAndTheNextStartCaptionAndToolBarStayAsTheyAre)
{
    MainWindowDriver driver({file});
    auto& toolBar = driver.child<QToolBar>("toolBar");
    const auto toggle = [&driver, &toolBar] {
        driver.chooseFromMenu("menuTools", "actionTools_showHideToolbar");
        EXPECT_EQ(driver.child<QAction>("actionTools_showHideToolbar").isChecked(), toolBar.isVisible());
        return toolBar.isVisible();
    };
    EXPECT_FALSE(toggle());
    EXPECT_TRUE(toggle());
    ASSERT_TRUE(driver.run());
    driver.clickToolButton("actionHash_Stop");
    EXPECT_EQ(driver.status(), successStatus());
    driver.type("other");
    EXPECT_EQ(driver.caption(), "Calculated hash for the file (SHA-256)");
    EXPECT_TRUE(toggle());
    driver.type(file);
    ASSERT_TRUE(driver.run());
    EXPECT_EQ(driver.hex(), kHexOfAbc);
    EXPECT_FALSE(toggle());
}

TEST_F(HashSession, ExitClosesTheWindow)
{
    MainWindowDriver driver;
    driver.chooseFromMenu("menuFile", "actionFile_Exit");
    EXPECT_FALSE(driver.window().isVisible());
}

} // namespace
} // namespace quillon::tests
