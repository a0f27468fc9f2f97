#include "app/MainWindowTest.h"

#include <QElapsedTimer>
#include <QThread>

#include <random>

namespace quillon::tests {
namespace {

constexpr int kCycles = 1000;
constexpr unsigned kSeed = 20260119;

using StartStop = MainWindowTest;

/// Waits for the end of the next run without a pause between looks, as runs are short here.
bool watchForEnd(const MainWindowDriver& driver, int ended)
{
    return waitUntil([&driver, ended] {
        QCoreApplication::processEvents();
        return driver.runsEnded() == ended + 1;
    });
}

TEST_F(StartStop, AThousandStopsAtRandomMomentsEachLeaveTheRightDigestOrNone)
{
    // So much that reading it takes no less than what the window does about a run.
    const std::string bytes = blocksOfBytes(768);
    const std::string digested = sha256Result(bytes);
    MainWindowDriver driver({write("blocks", bytes)});
    QElapsedTimer timer;
    qint64 shortest = std::numeric_limits<qint64>::max();
    for (int run = 0; run < 5; ++run) {
        timer.start();
        driver.press(Qt::Key_F5);
        ASSERT_TRUE(watchForEnd(driver, run));
        shortest = std::min(shortest, timer.nsecsElapsed() / 1000);
    }
    std::mt19937 random(kSeed);
    std::uniform_int_distribution<qint64> moment(0, shortest);
    int stopped = 0;
    for (int cycle = 1; cycle <= kCycles; ++cycle) {
        const int ended = driver.runsEnded();
        driver.press(Qt::Key_F5);
        // The stop's random moment, from before the worker has begun to after it has ended; half of the stops
        // come while the window knows nothing of the start yet.
        if (cycle % 2 == 0)
            QCoreApplication::processEvents();
        QThread::usleep(static_cast<unsigned long>(moment(random)));
        driver.press(Qt::Key_F8);
        ASSERT_TRUE(watchForEnd(driver, ended)) << "cycle " << cycle;
        const bool isStopped = driver.result() == errorResult("Hash calculation was canceled");
        ASSERT_TRUE(isStopped || driver.result() == digested) << "cycle " << cycle << ": " << driver.result();
        stopped += isStopped ? 1 : 0;
    }
    EXPECT_GT(stopped, kCycles / 50) << "hardly any stop came in time";
    EXPECT_LT(stopped, kCycles - kCycles / 50) << "hardly any run was left to its end";
}

} // namespace
} // namespace quillon::tests
