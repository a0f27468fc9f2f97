// Runs that are slowed down, held up or failed in their reads, as a test can do on Unix only.

#include "app/MainWindowTest.h"
#include "logger/LogSender.h"
#include "support/LauncherBus.h"
#include "support/ReadFaults.h"
#include "support/RecordingAppender.h"

#include <QElapsedTimer>

#include <cerrno>
#include <optional>
#include <regex>

namespace quillon::tests {
namespace {

constexpr unsigned kBlocks = 80;
constexpr std::chrono::milliseconds kReadDelay{250};

class RunInProgress : public MainWindowTest
{
protected:
    RunInProgress()
    {
        logger::getLogSender()->setLevel(logger::ELogLevel::Debug);
        EXPECT_EQ(logger::getLogSender()->appenders().addAppender(new RecordingAppender(7, log)),
                  err::ResultCode{});
    }

    /// Starts a run that waits in its `number`-th read.
    void startAndHold(unsigned number)
    {
        faults.holdFrom(number);
        driver->press(Qt::Key_F5);
        ASSERT_TRUE(waitFor([this] { return faults.holds() == 1; }));
    }

    void finish(const std::string& result)
    {
        faults.release();
        ASSERT_TRUE(driver->waitForEnd());
        EXPECT_EQ(driver->result(), result);
    }

    /// Waits until the status line shows percent and time as these patterns say.
    bool waitForProgress(const std::string& percent, const std::string& time)
    {
        const std::regex text(R"(#000000 SHA-256\. )" + percent + R"(% processed\. Remaining time: )" + time +
                              R"( seconds\.  \[\d+\])");
        return waitFor([&] { return std::regex_match(driver->status(), text); });
    }

    Lines log = Lines(1); // with an empty line for a beginning
    const std::string bytes = blocksOfBytes(kBlocks);
    const std::string done = sha256Result(bytes);
    const std::string cancelled = errorResult("Hash calculation was canceled");
    const QString file = write("blocks", bytes);
    const QString other = write("other", "other");
    const QString plainCaption = "Calculated hash for the file";
    std::optional<MainWindowDriver> driver{std::in_place, QStringList{file}};
    // Behind the driver, so that no worker is held when that waits for it.
    ReadFaults faults{file.toStdString()};
};

TEST_F(RunInProgress, ShowsItsBeginningThenTheShareOnBothBarsAndRefusesAnotherStart)
{
    LauncherBus bus;
    ASSERT_TRUE(bus.isListening());
    driver.emplace(QStringList{file});
    startAndHold(1);
    const std::string beginning = "#000000 SHA-256. 0.000% processed. [0]\n"
                                  "actionFile_AddFile\nactionHash_Calculate\nactionHash_selectAlgorithm\n"
                                  "lineEditInput\nbuttonDefineInputFile";
    EXPECT_TRUE(waitFor([&] { return driver->result() == beginning; })) << driver->result();
    EXPECT_TRUE(waitFor([&bus] { return bus.updates() == QStringList("shown 0"); }));
    faults.holdFrom(2);
    EXPECT_TRUE(waitForProgress("1\\.250", ".*")) << driver->status();
    EXPECT_TRUE(driver->status().ends_with("[12]")) << driver->status();
    EXPECT_TRUE(waitFor([&bus] { return bus.updates().mid(1) == QStringList("shown 0.01"); }));
    driver->press(Qt::Key_F5);
    EXPECT_EQ(driver->status(), errorResult("Hash calculation already running."));
    faults.delayEach(kReadDelay);
    faults.release();
    EXPECT_TRUE(waitForProgress("\\d+\\.\\d{3}", ".*")) << driver->status();
    EXPECT_EQ(driver->runsEnded(), 0);
    faults.delayEach({});
    finish(done);
    EXPECT_TRUE(waitFor([&bus] { return bus.updates().last().startsWith("hidden"); }));
    driver.reset();
}

TEST_F(RunInProgress, TellsTheRemainingTimeInTheUnitsThatItNeeds)
{
    faults.delayEach(kReadDelay);
    for (const auto& [blocks, time] : {std::pair{80, "(\\d+ minutes )?[1-9]\\d*"},
                                       {8'000, "\\d+ minutes \\d+"},
                                       {800'000, "\\d+ hours \\d+ minutes \\d+"}}) {
        std::filesystem::resize_file(folder.file("blocks"), blocks * std::uintmax_t{32768});
        const int ended = driver->runsEnded();
        faults.holdFrom(faults.reads() + 2);
        driver->press(Qt::Key_F5);
        EXPECT_TRUE(waitForProgress(".*", time)) << driver->status();
        driver->press(Qt::Key_F8);
        faults.release();
        ASSERT_TRUE(driver->waitForEnd(ended + 1));
    }
}

TEST_F(RunInProgress, EndsAtAStopWithoutADigestAndTheNextOneWorks)
{
    startAndHold(3);
    driver->press(Qt::Key_F8);
    finish(cancelled);
    EXPECT_EQ(log.back().message, "Hash calculation was canceled");
    EXPECT_EQ(faults.reads(), 3U);
    ASSERT_TRUE(driver->run());
    EXPECT_EQ(driver->result(), done);
    EXPECT_EQ(driver->caption(), plainCaption + " (SHA-256)");
}

TEST_F(RunInProgress, GoesOnWhileADropOrADialogChangesTheField)
{
    startAndHold(2);
    ASSERT_TRUE(waitForProgress("1\\.250", ".*"));
    const std::string before = driver->status();
    driver->drop("frameInputFile", {QUrl::fromLocalFile(other)});
    EXPECT_EQ(driver->input(), other);
    EXPECT_TRUE(driver->details().startsWith("File size: 5B\n"));
    EXPECT_EQ(driver->status(), before);
    const DialogAnswer answer([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    driver->press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_TRUE(answer.isGiven());
    EXPECT_EQ(driver->runsEnded(), 0);
    finish(done);
    EXPECT_EQ(driver->caption(), plainCaption);
}

TEST_F(RunInProgress, DigestsAFileAsLongAsItWasAtTheStartAlsoWhereItIsRemoved)
{
    startAndHold(3);
    const std::filesystem::path path = folder.file("blocks");
    std::filesystem::resize_file(path, 2 * bytes.size());
    std::filesystem::remove(path);
    finish(done);
}

TEST_F(RunInProgress, WaitsForTheRestOfATruncatedFileUntilTheStop)
{
    startAndHold(3);
    std::filesystem::resize_file(folder.file("blocks"), 0);
    faults.release();
    ASSERT_TRUE(waitFor([this] { return faults.reads() > 1000; }));
    EXPECT_EQ(driver->runsEnded(), 0);
    driver->press(Qt::Key_F8);
    finish(cancelled);
}

TEST_F(RunInProgress, NamesAReadErrorWithBothItsNumbersAndMakesAnInterruptedReadAgain)
{
    faults.fail(3, EIO);
    ASSERT_TRUE(driver->run());
    EXPECT_EQ(driver->result(), errorResult("Input/output error (error: 1/5,5/60)"));
    EXPECT_EQ(log.back().message, "Failed to calculate hash. Error: 1/5,5/60");
    EXPECT_EQ(driver->caption(), plainCaption);
    faults.fail(5, EINTR);
    ASSERT_TRUE(driver->run());
    EXPECT_EQ(faults.failures(), 2U);
    EXPECT_EQ(driver->result(), done);
}

TEST_F(RunInProgress, EndsPromptlyWithTheWindowWhichWaitsForTheWorker)
{
    constexpr qint64 kPromptMs = 10'000; // half of what the run would take
    faults.delayEach(kReadDelay);
    driver->press(Qt::Key_F5);
    ASSERT_TRUE(waitFor([this] { return faults.reads() > 1; }));
    QElapsedTimer timer;
    timer.start();
    driver->window().close();
    EXPECT_FALSE(driver->window().isVisible());
    driver.reset();
    EXPECT_LT(timer.elapsed(), kPromptMs);
    const unsigned reads = faults.reads();
    EXPECT_FALSE(QTest::qWaitFor([&] { return faults.reads() > reads; }, 3 * kReadDelay.count()));
    // A stop that comes before the worker has begun is not lost either.
    for (int round = 0; round < 8; ++round)
        QTest::keyClick(&driver.emplace(QStringList{file}).window(), Qt::Key_F5);
    driver.reset();
    EXPECT_LT(timer.elapsed(), kPromptMs);
}

} // namespace
} // namespace quillon::tests
