// The ways in which a file reaches the edit field, and what the window shows of it.

#include "app/MainWindowTest.h"
#include "platform/qt/UserPlaces.h"
#include "support/UrlDesktop.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTextCursor>
#include <QTextEdit>

namespace quillon::tests {
namespace {

class FileInput : public MainWindowTest
{
protected:
    /// Gives `name` to the next file dialog, and leaves that with Escape where it is empty.
    DialogAnswer answerWithFile(const QString& name)
    {
        return DialogAnswer([this, name](QDialog& dialog) {
            title = dialog.windowTitle() + ": " + dynamic_cast<QFileDialog&>(dialog).nameFilters().join(';');
            auto* const edit = dialog.findChild<QLineEdit*>("fileNameEdit");
            typeInto(*edit, name);
            QTest::keyClick(edit, name.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
        });
    }

    const QString file = write("first.bin", "abc");
    const QString second = write("second", "second file");
    const QString plainCaption = "Calculated hash for the file";
    const QString allFiles = ": All files" + platform::allFilesPattern();
    QString title; ///< of the last file dialog, with its filters
};

TEST_F(FileInput, ByTypingTakesEveryNameWithoutTheBlanksAroundIt)
{
    MainWindowDriver driver;
    for (const char* name :
         {"plain", "two words.bin", "it's 'quoted' & so.bin", "Grüße-Ä.txt", "文件名 ж.bin", " x"}) {
        driver.type("  " + write(name, name) + ' ');
        EXPECT_TRUE(driver.details().startsWith("File size: ")) << name;
        ASSERT_TRUE(driver.run());
        EXPECT_EQ(driver.result(), sha256Result(name));
        EXPECT_EQ(driver.caption(), plainCaption + " (SHA-256)");
    }
}

TEST_F(FileInput, EveryWayToTheFileDialogSetsTheChosenFile)
{
    const std::function<void(MainWindowDriver&)> ways[]{
        [](auto& driver) { driver.press(Qt::Key_O, Qt::ControlModifier); },
        [](auto& driver) { driver.press(Qt::Key_N, Qt::ControlModifier); },
        [](auto& driver) { driver.press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier); },
        [](auto& driver) { driver.click("buttonDefineInputFile"); },
        [](auto& driver) { driver.clickToolButton("actionFile_AddFile"); },
        [](auto& driver) { driver.chooseFromMenu("actionFile_AddFile"); },
    };
    for (const auto& way : ways) {
        MainWindowDriver driver({file});
        ASSERT_TRUE(driver.run());
        const DialogAnswer escape = answerWithFile("");
        way(driver);
        EXPECT_EQ(driver.result(), sha256Result("abc"));
        const DialogAnswer answer = answerWithFile(second);
        way(driver);
        EXPECT_EQ(std::exchange(title, {}), "Add file to calculate hash" + allFiles);
        EXPECT_EQ(driver.input(), second);
        EXPECT_EQ(driver.result(), "");
    }
}

TEST_F(FileInput, IsAskedForByAStartThatHasNone)
{
    MainWindowDriver driver;
    driver.type("  ");
    const DialogAnswer escape = answerWithFile("");
    driver.clickToolButton("actionHash_Calculate");
    EXPECT_EQ(driver.result(), errorResult("File to calculate hash is not defined."));
    const DialogAnswer answer = answerWithFile(file);
    ASSERT_TRUE(driver.run());
    EXPECT_EQ(title, "Select file to calculate hash" + allFiles);
    EXPECT_EQ(driver.input(), file);
    EXPECT_EQ(driver.result(), sha256Result("abc"));
}

TEST_F(FileInput, KeysWithOtherModifiersDoNothing)
{
    UrlDesktop desktop;
    MainWindowDriver driver({file});
    for (const Qt::Key key : {Qt::Key_O, Qt::Key_N, Qt::Key_F9, Qt::Key_F5})
        driver.press(key, Qt::ControlModifier | Qt::AltModifier);
    driver.press(Qt::Key_F5, Qt::AltModifier);
    driver.press(Qt::Key_F5, Qt::ControlModifier);
    driver.press(Qt::Key_F9);
    EXPECT_EQ(driver.result(), "");
    EXPECT_TRUE(desktop.opened.isEmpty());
}

TEST_F(FileInput, ByDropTakesTheFirstFileAsItIsAndOfAnUrlThatIsNoFileNothing)
{
    for (const char* target : {"frameInputFile", "lineEditInput"}) {
        write("first.bin", "abc");
        MainWindowDriver driver({file});
        ASSERT_TRUE(driver.run());
        write("first.bin", "changed");
        driver.drop(target, {QUrl::fromLocalFile(file)});
        EXPECT_TRUE(driver.details().startsWith("File size: 7B\n")) << target;
        EXPECT_EQ(driver.result(), sha256Result("abc"));
        driver.drop(target, {QUrl::fromLocalFile(second), QUrl::fromLocalFile(file)});
        EXPECT_EQ(driver.input(), second) << target;
        EXPECT_EQ(driver.result(), "");
        EXPECT_EQ(driver.caption(), plainCaption);
        driver.drop(target, {QUrl("https://example.com/x.bin"), QUrl::fromLocalFile(file)});
        EXPECT_EQ(driver.input() + driver.details(), "") << target;
    }
}

TEST_F(FileInput, ByCommandLineIsWhatTheTableSays)
{
    QFile table(KESTRUM_TEST_DATA "/app/command-lines.txt");
    ASSERT_TRUE(table.open(QIODevice::ReadOnly | QIODevice::Text));
    const QStringList lines = QString::fromUtf8(table.readAll()).split('\n', Qt::SkipEmptyParts);
    const QString formerFolder = QDir::currentPath();
    QDir::setCurrent(folderName());
    write("-a ü.bin", "a");
    write("b.bin", "b");
    for (const QString& line : lines.filter(QRegularExpression("^[^#]"))) {
        const QStringList row = line.split('|');
        const MainWindowDriver driver(row.mid(3));
        EXPECT_EQ(driver.input(), row[0]) << line.toStdString();
        EXPECT_EQ(driver.algorithm(), row[1]) << line.toStdString();
        EXPECT_TRUE(waitFor([&] { return driver.status() == row[2].toStdString(); })) << line.toStdString();
    }
    QDir::setCurrent(formerFolder);
}

TEST_F(FileInput, OfTheCommandLineIsTakenAtTheFirstShowOnly)
{
    MainWindowDriver driver({file});
    EXPECT_EQ(driver.window().windowTitle(), "Kestrum v1.0.0.0");
    driver.type("x");
    driver.selectAlgorithm("SHA-512");
    driver.window().setWindowTitle("other");
    driver.window().hide();
    driver.window().show();
    EXPECT_EQ(driver.input(), "x");
    EXPECT_EQ(driver.algorithm(), "SHA-512");
    EXPECT_EQ(driver.window().windowTitle(), "other");
}

TEST_F(FileInput, ThatIsMissingReddensWhatComesAfterIt)
{
    MainWindowDriver driver;
    driver.type("x");
    for (const auto& [name, text] : {std::pair{"first.bin", "#000000 File size: 3B"},
                                     {"gone", "#000000 File not found"},
                                     {"gone too", "#ff0000 File not found"},
                                     {"first.bin", "#000000 File size: 3B"}}) {
        QGuiApplication::clipboard()->setText(nameOf(name));
        driver.press(Qt::Key_A, Qt::ControlModifier);
        driver.press(Qt::Key_V, Qt::ControlModifier);
        QTextCursor cursor(driver.child<QTextEdit>("textEditInputFileDetails").document());
        cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
        const QString colour = cursor.charFormat().foreground().color().name();
        EXPECT_EQ(colour + ' ' + driver.details().section('\n', 0, 0), text);
    }
}

TEST_F(FileInput, OfAnotherNameLosesTheDigestAndTheCaptionUnlessTheCaseAloneIsAnother)
{
    MainWindowDriver driver({file});
    ASSERT_TRUE(driver.run());
    driver.type(nameOf("FIRST.bin"));
    EXPECT_EQ(driver.result(), "");
    EXPECT_EQ(driver.caption(), plainCaption + " (SHA-256)");
    driver.type(second);
    EXPECT_EQ(driver.caption(), plainCaption);
}

TEST_F(FileInput, LiesInTheFolderThatOpensWhereThereIsOne)
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
    driver.chooseFromMenu("actionFile_InputDir");
    const QUrl url = QUrl::fromLocalFile(folderName());
    EXPECT_EQ(desktop.opened, QList<QUrl>({url, url, url}));
}

} // namespace
} // namespace quillon::tests
