// The ways in which a file reaches the edit field, and what the window shows of it.

#include "app/MainWindowTest.h"
#include "support/CaseTable.h"
#include "support/UrlDesktop.h"

#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QTextCursor>
#include <QTextEdit>

namespace quillon::tests {
namespace {

class FileInput : public MainWindowTest
{
protected:
    /// Gives `name` to the file dialog that `way` opens, and leaves that with Escape where it is empty. The
    /// answer is the dialog's title.
    static QString answer(const QString& name, const std::function<void()>& way)
    {
        QString title;
        const DialogAnswer answer([&](QDialog& dialog) {
            title = dialog.windowTitle();
            auto* const edit = dialog.findChild<QLineEdit*>("fileNameEdit");
            edit->setText(name);
            QTest::keyClick(edit, name.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
        });
        way();
        return title;
    }

    const QString file = write("first.bin", "abc");
    const QString second = write("second", "second file");
    MainWindowDriver driver;
};

TEST_F(FileInput, ByTypingTakesEveryNameAndLosesTheDigestOfAnother)
{
    for (const char* name : {"Grüße 文件名 ж.bin", "it's 'quoted' & so.bin"}) {
        driver.type("  " + write(name, name) + ' ');
        EXPECT_TRUE(driver.details().startsWith("File size: ")) << name;
        EXPECT_EQ(driver.result(), "");
        EXPECT_EQ(driver.resultOfRun(), sha256Result(name));
        EXPECT_EQ(driver.caption(), plainCaption + " (SHA-256)");
    }
    driver.type(driver.input().toUpper());
    EXPECT_EQ(driver.result(), "");
    EXPECT_EQ(driver.caption(), plainCaption + " (SHA-256)") << "of a name in other case";
    driver.type(second);
    EXPECT_EQ(driver.caption(), plainCaption);
    write("report", "without a blank");
    driver.type(write("report ", "with one"));
    EXPECT_TRUE(driver.details().startsWith("File size: 8B\n"));
    EXPECT_EQ(driver.resultOfRun(), sha256Result("with one"));
}

TEST_F(FileInput, IsAskedForInEveryWayAndByAStartThatHasNone)
{
    driver.type("  ");
    const auto start = [this] { driver.clickToolButton("actionHash_Calculate"); };
    EXPECT_EQ(answer("", start), "Select file to calculate hash");
    EXPECT_EQ(driver.result(), errorResult("File to calculate hash is not defined."));
    answer(file, start);
    ASSERT_TRUE(driver.waitForEnd());
    EXPECT_EQ(driver.result(), sha256Result("abc"));
    const std::function<void()> ways[]{
        [this] { driver.press(Qt::Key_O, Qt::ControlModifier); },
        [this] { driver.press(Qt::Key_N, Qt::ControlModifier); },
        [this] { driver.click("buttonDefineInputFile"); },
        [this] { driver.chooseFromMenu("actionFile_AddFile"); },
    };
    for (const auto& way : ways) {
        driver.child<QComboBox>("comboBoxSelectAlg").setFocus(); // which takes letters for itself
        answer("", way);
        EXPECT_EQ(driver.result(), sha256Result("abc"));
        EXPECT_EQ(answer(second, way), "Add file to calculate hash");
        EXPECT_EQ(driver.input(), second);
        EXPECT_EQ(driver.result(), "");
        driver.type(file);
        ASSERT_TRUE(driver.run());
    }
}

TEST_F(FileInput, ByDropTakesTheFirstFileAsItIsAndOfAnUrlThatIsNoFileNothing)
{
    for (const char* target : {"frameInputFile", "lineEditInput"}) {
        driver.type(write("first.bin", "abc"));
        EXPECT_FALSE(driver.drop(target, {})) << "a text";
        EXPECT_FALSE(driver.drop(target, {QUrl::fromLocalFile(second)}, Qt::MoveAction));
        ASSERT_TRUE(driver.run());
        write("first.bin", "changed");
        EXPECT_TRUE(driver.drop(target, {QUrl::fromLocalFile(file)}));
        EXPECT_TRUE(driver.details().startsWith("File size: 7B\n")) << target;
        EXPECT_EQ(driver.result(), sha256Result("abc"));
        driver.drop(target, {QUrl::fromLocalFile(second), QUrl::fromLocalFile(file)});
        EXPECT_EQ(driver.input() + driver.caption(), second + plainCaption) << target;
        EXPECT_EQ(driver.result(), "");
        driver.drop(target, {QUrl("https://example.com/x.bin"), QUrl::fromLocalFile(file)});
        EXPECT_EQ(driver.input() + driver.details(), "") << target;
    }
}

TEST_F(FileInput, ByCommandLineIsWhatTheTableSays)
{
    const QString formerFolder = QDir::currentPath();
    QDir::setCurrent(folderName());
    write("-a ü.bin", "a");
    write("b.bin", "b");
    write(" c.bin", "c");
    for (const CaseRow& row : readCaseTable("app/command-lines.txt")) {
        SCOPED_TRACE(inBrackets(row));
        QStringList arguments;
        for (std::size_t cell = 3; cell < row.size(); ++cell)
            arguments += QString::fromStdString(row[cell]);
        const MainWindowDriver started(arguments);
        EXPECT_EQ(started.input().toStdString(), row[0]);
        EXPECT_EQ(started.algorithm().toStdString(), row[1]);
        EXPECT_TRUE(waitFor([&] { return started.status() == row[2]; })) << started.status();
    }
    QDir::setCurrent(formerFolder);
}

TEST_F(FileInput, ThatIsMissingReddensWhatComesAfterIt)
{
    for (const auto& [name, text] : {std::pair{"gone", "#000000 File not found"},
                                     {"gone too", "#ff0000 File not found"},
                                     {"first.bin", "#000000 File size: 3B"}}) {
        driver.type(nameOf(name));
        QTextCursor cursor(driver.child<QTextEdit>("textEditInputFileDetails").document());
        cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
        const QString colour = cursor.charFormat().foreground().color().name();
        EXPECT_EQ(colour + ' ' + driver.details().section('\n', 0, 0), text);
    }
}

TEST_F(FileInput, LiesInTheFolderThatOpensWhereThereIsOne)
{
    UrlDesktop desktop;
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
