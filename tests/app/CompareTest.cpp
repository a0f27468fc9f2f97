// The comparison with an expected digest, as its user sees it.

#include "app/MainWindowTest.h"
#include "support/CaseTable.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

namespace quillon::tests {
namespace {

struct CompareTest : MainWindowTest
{
    /// Opens the dialog and lets `use` do something in it, which ends with Escape.
    void compare(const std::function<void()>& use)
    {
        const DialogAnswer answer([&](QDialog& shown) {
            dialog = &shown;
            use();
            if (shown.isVisible())
                QTest::keyClick(&shown, Qt::Key_Escape);
            EXPECT_FALSE(shown.isVisible());
        });
        driver.chooseFromMenu("actionHash_compare");
        EXPECT_TRUE(answer.isGiven());
    }

    void click(const char* button) const
    {
        QTest::mouseClick(dialog->findChild<QPushButton*>(button), Qt::LeftButton);
    }

    void paste(const std::string& text) const
    {
        QGuiApplication::clipboard()->setText(QString::fromStdString(text));
        click("buttonPaste");
    }

    void drop(const QString& file)
    {
        EXPECT_TRUE(driver.drop("plainTextEditExpected", {QUrl::fromLocalFile(file)}));
    }

    [[nodiscard]] QPlainTextEdit& field() const
    {
        return *dialog->findChild<QPlainTextEdit*>("plainTextEditExpected");
    }

    /// The answer and, where there is one, the button's text.
    [[nodiscard]] std::string answer() const
    {
        const auto* const button = dialog->findChild<QPushButton*>("buttonCalculate");
        EXPECT_FALSE(dialog->findChild<QLabel*>("labelIcon")->pixmap(Qt::ReturnByValue).isNull());
        const QString text = dialog->findChild<QLabel*>("labelAnswer")->text();
        return (button->isVisible() ? text + '|' + button->text() : text).toStdString();
    }

    MainWindowDriver driver{QStringList{write("abc.bin", "abc")}};
    QDialog* dialog = nullptr;
    const std::string digest = "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad";
};

TEST_F(CompareTest, AnswersEachTextAsTheTableSays)
{
    EXPECT_FALSE(driver.child<QAction>("actionHash_compare").isEnabled());
    ASSERT_TRUE(driver.run());
    QClipboard& clipboard = *QGuiApplication::clipboard();
    clipboard.setText(QString::fromStdString(digest));
    compare([&] {
        // A test without a display cannot say whose clipboard it is, and takes it for another program's.
        EXPECT_EQ(field().toPlainText().toStdString(), clipboard.ownsClipboard() ? "" : digest);
        for (const CaseRow& row : readCaseTable("app/comparisons.txt")) {
            paste(row[0]);
            EXPECT_EQ(answer(), row.size() > 2 ? row[1] + '|' + row[2] : row[1]) << row[0];
        }
        const auto& difference = *dialog->findChild<QLabel*>("labelDifference");
        EXPECT_FALSE(difference.isVisible());
        paste(digest.substr(0, 63) + "e");
        EXPECT_EQ(difference.text().count("<u "), 2) << "groups that differ";
        paste(std::string(70'000, 'a'));
        EXPECT_EQ(field().toPlainText().size(), 64 * 1024);
    });
}

TEST_F(CompareTest, TakesTheLineOfItsFileFromAList)
{
    ASSERT_TRUE(driver.run());
    compare([this] {
        drop(write("list", "00112233  other\n" + digest + " *abc.bin\n"));
        EXPECT_EQ(field().toPlainText().toStdString(), digest + " *abc.bin");
        EXPECT_EQ(answer(), "The hash values are equal.");
        drop(write("list", "00112233  other\n" + digest + "  third\n"));
        EXPECT_EQ(answer(), "The hash values are equal. The value stands beside the name third.");
        drop(write("list", "00112233  other\n44556677  third\n"));
        EXPECT_EQ(answer(), "The list has no hash value for this file.");
        drop(write("list", digest + std::string(1024 * 1024, '\n')));
        EXPECT_EQ(answer(), "The list is too long.");
        drop(nameOf("gone"));
        EXPECT_EQ(answer().substr(0, 29), "The list could not be read. E");
        EXPECT_EQ(field().toPlainText(), "");
    });
}

TEST_F(CompareTest, CalculatesAnewWithTheOtherAlgorithmAndComesBack)
{
    ASSERT_TRUE(driver.run());
    std::string second;
    std::optional<DialogAnswer> next;
    compare([&] {
        paste("md5 900150983cd24fb0d6963f7d28e17f72  abc.bin"); // RFC 1321, A.5
        EXPECT_EQ(answer(), "The value is for MD5. The file was calculated with SHA-256.|Calculate with MD5");
        click("buttonCalculate");
        next.emplace([&](QDialog& shown) {
            dialog = &shown;
            second = answer();
            shown.reject();
        });
    });
    EXPECT_TRUE(waitFor([&second] { return !second.empty(); }));
    EXPECT_EQ(second,
              "The hash values are equal. This algorithm does not protect against deliberate changes.");
    EXPECT_EQ(driver.algorithm(), "MD5 (16-bite)");
    // A run of the user's own has nothing to come back to.
    ASSERT_TRUE(driver.run());
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

} // namespace
} // namespace quillon::tests
