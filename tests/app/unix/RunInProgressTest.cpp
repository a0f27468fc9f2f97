// Runs that are slowed down, held up, failed in their reads or refused, as a test can do on Unix only.

#include "app/MainWindowTest.h"
#include "logger/LogSender.h"
#include "platform/unix/Posix.h"
#include "support/LauncherBus.h"
#include "support/ReadFaults.h"
#include "support/RecordingAppender.h"

#include <QAccessible>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTextDocumentFragment>

#include <fcntl.h>
#include <pthread.h>

#include <cerrno>
#include <csignal>
#include <optional>

namespace {

QStringList announced; // by the program

} // namespace

/// Stands in front of Qt's own, which does nothing where no screen reader listens.
void QAccessible::updateAccessibility(QAccessibleEvent* event)
{
    if (event->type() == QAccessible::Alert)
        announced += event->accessibleInterface()->text(QAccessible::Value);
}

namespace quillon::tests {
namespace {

constexpr std::uintmax_t kBlockBytes = 32768;
constexpr unsigned kReadDelayMs = 50;

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
        faults.holds = 0;
        faults.holdFrom(faults.reads + number);
        driver->press(Qt::Key_F5);
        ASSERT_TRUE(waitFor([this] { return faults.holds == 1; }));
    }

    void finish(const std::string& result)
    {
        faults.release();
        ASSERT_TRUE(driver->waitForEnd(++runs));
        EXPECT_EQ(driver->result(), result);
    }

    /// Waits until the status line shows percent and time as these patterns say.
    bool waitForProgress(const std::string& percent, const std::string& time)
    {
        const std::string text = R"(^#000000 SHA-256\. )" + percent + R"(% processed\. Remaining time: )" +
                                 time + R"( seconds\.  \[\d+\]$)";
        const QRegularExpression pattern(QString::fromStdString(text));
        return waitFor([&] { return QString::fromStdString(driver->status()).contains(pattern); });
    }

    int runs = 0;
    Lines log = Lines(1); // with an empty line for a beginning
    const std::string bytes = blocksOfBytes(80);
    const std::string done = sha256Result(bytes);
    const std::string cancelled = errorResult("Hash calculation was canceled");
    const QString file = write("blocks", bytes);
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
    // Until the bus is reached only the latest state is kept for it.
    EXPECT_TRUE(waitFor([&bus] { return bus.updates() == QStringList("shown 0"); }));
    faults.holdFrom(2);
    EXPECT_TRUE(waitForProgress("1\\.250", ".*")) << driver->status();
    EXPECT_TRUE(driver->status().ends_with("[12]")) << driver->status();
    EXPECT_TRUE(waitFor([&bus] { return bus.updates() == QStringList({"shown 0", "shown 0.01"}); }));
    driver->press(Qt::Key_F5);
    EXPECT_EQ(driver->status(), errorResult("Hash calculation already running."));
    faults.delayMs = 500; // more than the time between two reports
    faults.holdFrom(3);
    EXPECT_TRUE(waitForProgress("2\\.500", ".*")) << driver->status();
    EXPECT_EQ(driver->runsEnded(), 0);
    announced.clear();
    faults.delayMs = 0;
    finish(done);
    EXPECT_EQ(announced, QStringList("Hash was calculated successfully"));
    EXPECT_TRUE(waitFor([&bus] { return bus.updates().last().startsWith("hidden"); }));
    EXPECT_EQ(bus.application(), "application://example.quillon.Kestrum.desktop");
    driver.reset(); // before the bus
}

TEST_F(RunInProgress, TellsTheRemainingTimeInTheUnitsThatItNeeds)
{
    faults.delayMs = kReadDelayMs;
    for (const auto& [blocks, time] : {std::pair{80U, "(\\d+ minutes )?[1-9]\\d*"},
                                       {2'000U, "\\d+ minutes \\d+"},
                                       {800'000U, "\\d+ hours \\d+ minutes \\d+"}}) {
        std::filesystem::resize_file(folder.file("blocks"), blocks * kBlockBytes);
        startAndHold(2);
        EXPECT_TRUE(waitForProgress(".*", time)) << driver->status();
        driver->press(Qt::Key_F8);
        finish(cancelled);
    }
}

TEST_F(RunInProgress, EndsAtAStopWithoutADigestAndTheNextOneWorks)
{
    startAndHold(3);
    driver->press(Qt::Key_F8);
    finish(cancelled);
    EXPECT_EQ(log.back().message, "Hash calculation was canceled");
    EXPECT_EQ(faults.reads.load(), 3U);
    EXPECT_EQ(driver->resultOfRun(), done);
    EXPECT_EQ(driver->caption(), plainCaption + " (SHA-256)");
}

TEST_F(RunInProgress, GoesOnWhileADropChangesTheField)
{
    startAndHold(2);
    ASSERT_TRUE(waitForProgress("1\\.250", ".*"));
    const std::string before = driver->status();
    driver->drop("frameInputFile", {QUrl::fromLocalFile(write("other", "other"))});
    EXPECT_EQ(driver->input(), nameOf("other"));
    EXPECT_TRUE(driver->details().startsWith("File size: 5B\n"));
    driver->press(Qt::Key_F7); // stands for nothing
    EXPECT_EQ(driver->status(), before);
    // No write to the file
    std::filesystem::permissions(folder.file("blocks"), std::filesystem::perms::owner_all);
    std::filesystem::rename(folder.file("blocks"), folder.file("moved"));
    finish(sha256Result(bytes, "#005f00 Hash was calculated successfully: blocks"));
    const auto& digest = driver->child<QPlainTextEdit>("plainTextEditHashHex");
    EXPECT_EQ(digest.accessibleDescription(), file);
    EXPECT_EQ(QTextDocumentFragment::fromHtml(digest.toolTip()).toPlainText(), file);
    EXPECT_EQ(driver->caption(), plainCaption);
}

TEST_F(RunInProgress, DigestsAFileAsLongAsItWasAtTheStartAndWaitsForTheRestOfAShorterOneUntilTheStop)
{
    startAndHold(3);
    std::filesystem::resize_file(folder.file("blocks"), 2 * bytes.size());
    finish(sha256Result(bytes, "#9a4a00 Hash was calculated successfully. "
                               "The file was changed during the calculation."));
    EXPECT_EQ(log.back().message, "The file was changed during the calculation.");
    EXPECT_EQ(log.back().level, logger::ELogLevel::Warning);
    startAndHold(3);
    std::filesystem::resize_file(folder.file("blocks"), 0);
    faults.release();
    ASSERT_TRUE(waitFor([&, former = faults.reads.load()] { return faults.reads > former + 20; }));
    driver->press(Qt::Key_F8);
    finish(cancelled);
}

TEST_F(RunInProgress, GivesTheKeyboardBackUnlessTheUserHasMovedOn)
{
    auto& field = driver->child<QLineEdit>("lineEditInput");
    for (QWidget* other : {static_cast<QWidget*>(nullptr), &driver->child<QWidget>("plainTextEditHashHex")}) {
        field.setFocus();
        startAndHold(2);
        EXPECT_TRUE(waitFor([&field] { return !field.isEnabled(); }));
        if (other != nullptr)
            other->setFocus();
        finish(done);
        EXPECT_EQ(driver->window().focusWidget(), other == nullptr ? &field : other);
    }
}

TEST_F(RunInProgress, WaitsForAFileThatAnotherProgramHoldsBackUntilTheStop)
{
    const auto ignoreSignal = std::signal(SIGIO, SIG_IGN); // which asks for the lease
    const platform::Descriptor holder(open(file.toUtf8().constData(), O_RDWR | O_CLOEXEC));
    for (const bool isStopped : {true, false}) {
        ASSERT_EQ(fcntl(holder.get(), F_SETLEASE, F_WRLCK), 0);
        driver->press(Qt::Key_F5);
        EXPECT_TRUE(waitFor([&holder] { return fcntl(holder.get(), F_GETLEASE) != F_WRLCK; }));
        EXPECT_EQ(driver->runsEnded(), runs);
        if (isStopped)
            driver->press(Qt::Key_F8);
        else
            EXPECT_EQ(fcntl(holder.get(), F_SETLEASE, F_UNLCK), 0);
        finish(isStopped ? cancelled : done);
    }
    std::signal(SIGIO, ignoreSignal);
}

TEST_F(RunInProgress, NamesAReadErrorWithBothItsNumbersAndMakesAnInterruptedReadAgain)
{
    faults.error = EIO;
    faults.failAt = 3;
    EXPECT_EQ(driver->resultOfRun(), errorResult("Input/output error (error: 1/5,5/60)"));
    EXPECT_EQ(log.back().message, "Failed to calculate hash. Error: 1/5,5/60");
    EXPECT_EQ(driver->caption(), plainCaption);
    faults.error = EINTR;
    faults.failAt = 5;
    EXPECT_EQ(driver->resultOfRun(), done);
    EXPECT_EQ(faults.failAt.load(), 0U);
}

TEST_F(RunInProgress, EndsPromptlyWithTheWindowWhichWaitsForTheWorker)
{
    constexpr qint64 kPromptMs = 10'000; // a tenth of what the run would take
    std::filesystem::resize_file(folder.file("blocks"), 2'000 * kBlockBytes);
    faults.delayMs = kReadDelayMs;
    driver->press(Qt::Key_F5);
    ASSERT_TRUE(waitFor([this] { return faults.reads > 1; }));
    QElapsedTimer timer;
    timer.start();
    driver->window().close();
    EXPECT_FALSE(driver->window().isVisible());
    // A stop that comes before the worker has begun is not lost either.
    for (int round = 0; round < 8; ++round)
        QTest::keyClick(&driver.emplace(QStringList{file}).window(), Qt::Key_F5);
    driver.reset();
    EXPECT_LT(timer.elapsed(), kPromptMs);
}

TEST_F(RunInProgress, IsNoneWhereTheFileIsRefusedOrThereIsNoThread)
{
    driver->type(folderName());
    EXPECT_EQ(driver->resultOfRun(), errorResult("Is a directory (error: 1/21)"));
    EXPECT_EQ(driver->caption(), plainCaption);
    driver->type(file);
    pthread_attr_t former;
    ASSERT_EQ(pthread_getattr_default_np(&former), 0);
    pthread_attr_t huge = former;
    pthread_attr_setstacksize(&huge, std::size_t{1} << 47); // which no system has
    pthread_setattr_default_np(&huge);
    driver->press(Qt::Key_F5);
    pthread_setattr_default_np(&former);
    EXPECT_EQ(driver->result(), errorResult("Failed to start the hash calculation. (error: 5/303)"));
    EXPECT_EQ(driver->resultOfRun(), done);
}

} // namespace
} // namespace quillon::tests
