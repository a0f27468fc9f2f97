#include "app/MainWindowTest.h"
#include "platform/qt/UserPlaces.h"
#include "support/UrlDesktop.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QTextCursor>
#include <QTextEdit>
#include <QTimer>

namespace quillon::tests {
namespace {

constexpr const char* kDropTargets[]{"frameInputFile", "lineEditInput"};

class FileInput : public MainWindowTest
{
protected:
    const QString file = write("first.bin", "abc");
    const QString second = write("second", "second file");
};

/// Types `name` into a file dialog and accepts it.
DialogAnswer answerWithFile(const QString& name, QStringList& seen)
{
    return DialogAnswer([name, &seen](QDialog& dialog) {
        auto& files = dynamic_cast<QFileDialog&>(dialog);
        seen << files.windowTitle() << files.nameFilters();
        typeInto(*files.findChild<QLineEdit*>("fileNameEdit"), name);
        QTest::keyClick(files.findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
    });
}

DialogAnswer cancelDialog()
{
    return DialogAnswer([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
}

TEST_F(FileInput, ByTypingTakesEveryName)
{
    MainWindowDriver driver;
    for (const char* name :
         {"plain", "two words.bin", "it's 'quoted' & so.bin", "Grüße-Ä.txt", "文件名 ж.bin", " x"}) {
        driver.type(write(name, name));
        EXPECT_EQ(driver.input(), nameOf(name));
        EXPECT_TRUE(driver.details().startsWith("File size: ")) << name;
        ASSERT_TRUE(driver.run());
        EXPECT_EQ(driver.status(), successStatus()) << name;
        EXPECT_EQ(driver.hex(), sha256Hex(name)) << name;
    }
}

TEST_F(FileInput, BlanksAroundTheTypedNameDoNotCount)
{
    MainWindowDriver driver;
    driver.type("  " + file + ' ');
    EXPECT_TRUE(driver.details().startsWith("File size: 3B\n"));
    ASSERT_TRUE(driver.run());
    EXPECT_EQ(driver.status(), successStatus());
    EXPECT_EQ(driver.caption(), "Calculated hash for the file (SHA-256)");
}

TEST_F(FileInput, EveryWayToTheFileDialogSetsTheChosenFile)
{
    const std::function<void(MainWindowDriver&)> ways[]{
        [](auto& driver) { driver.press(Qt::Key_O, Qt::ControlModifier); },
        [](auto& driver) { driver.press(Qt::Key_N, Qt::ControlModifier); },
        [](auto& driver) { driver.press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier); },
        [](auto& driver) { driver.click("buttonDefineInputFile"); },
        [](auto& driver) { driver.clickToolButton("actionFile_AddFile"); },
        [](auto& driver) { driver.chooseFromMenu("menuFile", "actionFile_AddFile"); },
    };
    for (const auto& way : ways) {
        MainWindowDriver driver;
        QStringList seen;
        const DialogAnswer answer = answerWithFile(second, seen);
        way(driver);
        ASSERT_TRUE(answer.isGiven());
        EXPECT_EQ(seen,
                  QStringList({"Add file to calculate hash", "All files" + platform::allFilesPattern()}));
        EXPECT_EQ(driver.input(), second);
        EXPECT_TRUE(driver.details().startsWith("File size: 11B\n"));
    }
}

TEST_F(FileInput, ACancelledFileDialogChangesNothing)
{
    MainWindowDriver driver({file});
    ASSERT_TRUE(driver.run());
    const DialogAnswer answer = cancelDialog();
    driver.press(Qt::Key_O, Qt::ControlModifier);
    ASSERT_TRUE(answer.isGiven());
    EXPECT_EQ(driver.input(), file);
    EXPECT_EQ(driver.hex(), sha256Hex("abc"));
    EXPECT_EQ(driver.status(), successStatus());
}

TEST_F(FileInput, KeysWithAltDoNothing)
{
    MainWindowDriver driver({file});
    for (const Qt::Key key : {Qt::Key_O, Qt::Key_N, Qt::Key_F9, Qt::Key_F5, Qt::Key_F8})
        driver.press(key, Qt::ControlModifier | Qt::AltModifier);
    driver.press(Qt::Key_F5, Qt::AltModifier);
    driver.press(Qt::Key_F5, Qt::ControlModifier);
    EXPECT_EQ(driver.status(), noStatus());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(FileInput, AStartWithoutAFileAsksForOneAndDigestsIt)
{
    MainWindowDriver driver;
    driver.type("  ");
    QStringList seen;
    const DialogAnswer answer = answerWithFile(file, seen);
    ASSERT_TRUE(driver.run());
    EXPECT_EQ(seen,
              QStringList({"Select file to calculate hash", "All files" + platform::allFilesPattern()}));
    EXPECT_EQ(driver.input(), file);
    EXPECT_EQ(driver.hex(), sha256Hex("abc"));
}

TEST_F(FileInput, AStartWithoutAFileAndWithoutAnAnswerSaysSo)
{
    MainWindowDriver driver;
    const DialogAnswer answer = cancelDialog();
    driver.clickToolButton("actionHash_Calculate");
    EXPECT_TRUE(answer.isGiven());
    EXPECT_EQ(driver.status(), errorStatus("File to calculate hash is not defined."));
    EXPECT_EQ(driver.disabled(), QStringList());
}

TEST_F(FileInput, ByDropTakesTheFirstFileAndNoText)
{
    for (const char* target : kDropTargets) {
        MainWindowDriver driver;
        ASSERT_TRUE(driver.drop(target, {QUrl::fromLocalFile(second), QUrl::fromLocalFile(file)})) << target;
        EXPECT_EQ(driver.input(), second) << target;
        EXPECT_TRUE(driver.details().startsWith("File size: 11B\n")) << target;
        EXPECT_FALSE(driver.drop(target, {}));
        EXPECT_EQ(driver.input(), second) << target;
    }
}

TEST_F(FileInput, ByDropOfAnUrlThatIsNoFileEmptiesTheField)
{
    for (const char* target : kDropTargets) {
        MainWindowDriver driver({file});
        EXPECT_TRUE(driver.drop(target, {QUrl("https://example.com/x.bin"), QUrl::fromLocalFile(second)}));
        EXPECT_EQ(driver.input(), "") << target;
        EXPECT_EQ(driver.details(), "") << target;
    }
}

TEST_F(FileInput, ADropOfTheFileOnScreenKeepsItsDigestAndAnotherFileDropsIt)
{
    MainWindowDriver driver({file});
    ASSERT_TRUE(driver.run());
    driver.drop("frameInputFile", {QUrl::fromLocalFile(file)});
    EXPECT_EQ(driver.hex(), sha256Hex("abc"));
    EXPECT_EQ(driver.status(), successStatus());
    driver.drop("frameInputFile", {QUrl::fromLocalFile(second)});
    EXPECT_EQ(driver.hex() + driver.base64(), "");
    EXPECT_EQ(driver.status(), noStatus());
    EXPECT_EQ(driver.caption(), "Calculated hash for the file");
}

TEST_F(FileInput, ByCommandLineTakesFileAlgorithmAndStart)
{
    struct Row
    {
        QStringList arguments;
        QString input;
        const char* algorithm;
    };
    const Row rows[]{
        {{}, "", "SHA-256"},
        {{file}, file, "SHA-256"},
        {{file, second}, "", "SHA-256"},
        {{"/start"}, "", "SHA-256"},
        {{"-ifile", "./gone.bin"}, "./gone.bin", "SHA-256"},
        {{"-a", "whirlpool", "-start"}, "", "Whirlpool (64-bite)"},
        {{"-A", "skein512-256"}, "", "Skein512-256"},
        {{"-a", "no such", "-ifile", "x"}, "x", "SHA-256"},
    };
    for (const Row& row : rows) {
        const MainWindowDriver driver(row.arguments);
        EXPECT_EQ(driver.input(), row.input) << row.arguments.join(' ').toStdString();
        EXPECT_EQ(driver.child<QComboBox>("comboBoxSelectAlg").currentText(), row.algorithm);
        EXPECT_EQ(driver.status(), noStatus());
    }
}

TEST_F(FileInput, ByCommandLineWithStartRunsAtOnce)
{
    // A value may not begin with "/", so the file is named as seen from here.
    QDir::setCurrent(QString::fromStdString(folder.path().string()));
    MainWindowDriver driver({"/start", "/ifile", "first.bin", "/algorithm", "sha1"});
    ASSERT_TRUE(driver.waitForEnd());
    // FIPS 180-2, appendix A.1
    EXPECT_EQ(driver.hex(), "A9993E364706816ABA3E25717850C26C9CD0D89D");
    EXPECT_EQ(driver.caption(), "Calculated hash for the file (SHA1)");
    const MainWindowDriver missing({"-start", "-ifile", "gone.bin"});
    EXPECT_EQ(missing.status(), errorStatus("File to calculate hash is not found."));
    QDir::setCurrent(QDir::rootPath());
}

TEST_F(FileInput, OnlyTheFirstShowActsOnTheCommandLineAndTheSettings)
{
    MainWindowDriver driver({file});
    driver.type("x");
    driver.selectAlgorithm("SHA-512");
    driver.window().setWindowTitle("other");
    driver.window().hide();
    driver.window().show();
    EXPECT_EQ(driver.input(), "x");
    EXPECT_EQ(driver.child<QComboBox>("comboBoxSelectAlg").currentText(), "SHA-512");
    EXPECT_EQ(driver.window().windowTitle(), "other");
}

QColor colourOfDetails(const MainWindowDriver& driver)
{
    QTextCursor cursor(driver.child<QTextEdit>("textEditInputFileDetails").document());
    cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
    return cursor.charFormat().foreground().color();
}

TEST_F(FileInput, AMissingFileReddensWhatComesAfterIt)
{
    MainWindowDriver driver({file});
    const auto paste = [&driver](const QString& name) {
        QGuiApplication::clipboard()->setText(name);
        driver.press(Qt::Key_A, Qt::ControlModifier);
        driver.press(Qt::Key_V, Qt::ControlModifier);
        return driver.details();
    };
    driver.type(file);
    EXPECT_EQ(paste(nameOf("gone")), "File not found");
    EXPECT_EQ(colourOfDetails(driver), QColor(Qt::black));
    EXPECT_EQ(paste(nameOf("gone too")), "File not found");
    EXPECT_EQ(colourOfDetails(driver), QColor(Qt::red));
    EXPECT_NE(paste(file), "File not found");
    EXPECT_EQ(colourOfDetails(driver), QColor(Qt::black));
}

TEST_F(FileInput, ANameThatChangesItsCaseOnlyLosesTheDigestButNotTheCaption)
{
    MainWindowDriver driver({file});
    ASSERT_TRUE(driver.run());
    driver.type(nameOf("FIRST.bin"));
    EXPECT_EQ(driver.hex() + driver.base64(), "");
    EXPECT_EQ(driver.status(), noStatus());
    EXPECT_EQ(driver.caption(), "Calculated hash for the file (SHA-256)");
    driver.type(second);
    EXPECT_EQ(driver.caption(), "Calculated hash for the file");
}

TEST_F(FileInput, TheContainingFolderOpensWhereThereIsOne)
{
    UrlDesktop desktop;
    MainWindowDriver driver;
    driver.click("buttonGotoInputDir");
    driver.type("/no/such/folder/x");
    driver.press(Qt::Key_F9, Qt::ControlModifier);
    EXPECT_TRUE(desktop.opened.isEmpty());
    driver.type(nameOf("ü gone"));
    driver.click("buttonGotoInputDir");
    driver.press(Qt::Key_F9, Qt::ControlModifier);
    driver.chooseFromMenu("menuFile", "actionFile_InputDir");
    const QUrl url = QUrl::fromLocalFile(folderName());
    EXPECT_EQ(desktop.opened, QList<QUrl>({url, url, url}));
}

TEST_F(FileInput, TheHelpMenuOpensTheProductsPages)
{
    UrlDesktop desktop;
    MainWindowDriver driver;
    for (const char* action : {"actionHelp_HomePage", "actionHelp_Donate", "actionHelp_SupportEmail"})
        driver.chooseFromMenu("menuHelp", action);
    EXPECT_EQ(
        desktop.opened,
        QList<QUrl>({QUrl("https://kestrum.quillon.example/"), QUrl("https://kestrum.quillon.example/donate"),
                     QUrl("mailto:support@quillon.example?subject=" + driver.window().windowTitle())}));
}

} // namespace
} // namespace quillon::tests
