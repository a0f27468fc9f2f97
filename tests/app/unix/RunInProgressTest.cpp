// What the window does while a run goes on. The run is held up in its reads, which only Unix lets a test do.

#include "app/MainWindowTest.h"
#include "support/ReadFaults.h"

#include <QRegularExpression>
#include <QToolBar>

namespace quillon::tests {
namespace {

constexpr unsigned kBlocks = 8;

class RunInProgress : public MainWindowTest
{
protected:
    /// Starts a run that waits in its `number`-th read.
    void startAndHold(unsigned number)
    {
        faults.holdFrom(number);
        driver.press(Qt::Key_F5);
        ASSERT_TRUE(driver.waitForStart());
        ASSERT_TRUE(waitFor([this] { return faults.holds() == 1; }));
    }

    void finishWithDigest()
    {
        faults.release();
        ASSERT_TRUE(driver.waitForEnd());
        EXPECT_EQ(driver.status(), successStatus());
        EXPECT_EQ(driver.hex(), sha256Hex(bytes));
    }

    bool showsProgress() const
    {
        static const QRegularExpression text(
            R"(^SHA-256\. \d+\.\d{3}% processed\. Remaining time: (\d+ minutes )?\d+ seconds\. $)");
        const Status status = driver.status();
        return text.match(status.text).hasMatch() && status.colour == QColor(Qt::black) && status.isBarShown;
    }

    const std::string bytes = blocksOfBytes(kBlocks);
    const QString file = write("blocks", bytes);
    const QString other = write("other", "other");
    MainWindowDriver driver{{file}};
    // Behind the driver, so that no worker is held when that waits for it.
    ReadFaults faults{file.toStdString()};
};

TEST_F(RunInProgress, BeginsWithTheBarAtNothingAndTheInputControlsDisabled)
{
    startAndHold(1);
    EXPECT_EQ(driver.status(), (Status{"SHA-256. 0.000% processed.", QColor(Qt::black), true}));
    EXPECT_EQ(driver.disabled(),
              QStringList({"actionFile_AddFile", "actionHash_Calculate", "actionHash_selectAlgorithm",
                           "buttonDefineInputFile", "lineEditInput"}));
    finishWithDigest();
    EXPECT_EQ(driver.disabled(), QStringList());
}

TEST_F(RunInProgress, ShowsShareAndTimeAfterTheFirstBlock)
{
    startAndHold(2);
    ASSERT_TRUE(waitFor([this] { return showsProgress(); })) << driver.status();
    EXPECT_TRUE(driver.status().text.startsWith("SHA-256. 12.500% processed. Remaining time: "))
        << driver.status();
    finishWithDigest();
}

TEST_F(RunInProgress, ASecondStartIsRefusedUntilTheNextProgressTakesTheWordsAway)
{
    startAndHold(2);
    ASSERT_TRUE(waitFor([this] { return showsProgress(); }));
    driver.press(Qt::Key_F5);
    EXPECT_EQ(driver.status(), errorStatus("Hash calculation already running."));
    faults.delayEach(std::chrono::milliseconds(100));
    faults.release();
    EXPECT_TRUE(waitFor([this] { return showsProgress(); })) << driver.status();
    EXPECT_EQ(driver.runsEnded(), 0);
    finishWithDigest();
}

TEST_F(RunInProgress, AStopEndsItWithoutADigestAndLeavesCaptionAndToolBarInert)
{
    startAndHold(3);
    const QString caption = driver.caption();
    driver.press(Qt::Key_F8);
    faults.release();
    ASSERT_TRUE(driver.waitForEnd());
    EXPECT_EQ(driver.status(), errorStatus("Hash calculation was canceled"));
    EXPECT_EQ(driver.hex() + driver.base64(), "");
    EXPECT_EQ(driver.disabled(), QStringList());
    EXPECT_EQ(faults.reads(), 3U);
    driver.type(other);
    EXPECT_EQ(driver.caption(), caption);
    EXPECT_EQ(driver.status(), noStatus());
    driver.chooseFromMenu("menuTools", "actionTools_showHideToolbar");
    EXPECT_TRUE(driver.child<QToolBar>("toolBar").isVisible());
    ASSERT_TRUE(driver.run());
    EXPECT_EQ(driver.hex(), sha256Hex("other"));
    EXPECT_EQ(driver.caption(), "Calculated hash for the file (SHA-256)");
}

TEST_F(RunInProgress, ADropChangesTheFieldAndKeepsTheProgressAndTheRun)
{
    startAndHold(2);
    ASSERT_TRUE(waitFor([this] { return showsProgress(); }));
    const Status before = driver.status();
    ASSERT_TRUE(driver.drop("frameInputFile", {QUrl::fromLocalFile(other)}));
    EXPECT_EQ(driver.input(), other);
    EXPECT_TRUE(driver.details().startsWith("File size: 5B\n"));
    EXPECT_EQ(driver.status(), before);
    finishWithDigest();
    EXPECT_EQ(driver.caption(), "Calculated hash for the file");
}

TEST_F(RunInProgress, TheFileDialogStillOpensByKeyAndDoesNotTouchTheRun)
{
    startAndHold(2);
    for (const Qt::Key key : {Qt::Key_O, Qt::Key_N}) {
        const DialogAnswer answer([](QDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), "Add file to calculate hash");
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        driver.press(key, Qt::ControlModifier);
        EXPECT_TRUE(answer.isGiven());
    }
    EXPECT_EQ(driver.runsEnded(), 0);
    finishWithDigest();
}

} // namespace
} // namespace quillon::tests
