#include "app/MainWindowTest.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QThread>

#include <algorithm>
#include <limits>
#include <random>

namespace quillon::tests {
namespace {

constexpr int kCycles = 1000;
constexpr unsigned kSeed = 20260119;

using StartStop = MainWindowTest;

/// Waits for the end of the next run without a pause between looks, as runs are short here.
bool watchForEnd(const MainWindowDriver& driver, int ended)
{
    const QDeadlineTimer limit(60'000);
    while (driver.runsEnded() == ended && !limit.hasExpired())
        QCoreApplication::processEvents();
    return driver.runsEnded() == ended + 1;
}

/// How long a run takes here, as the shortest of a few.
qint64 runMicroseconds(MainWindowDriver& driver)
{
    qint64 shortest = std::numeric_limits<qint64>::max();
    for (int run = 0; run < 5; ++run) {
        QElapsedTimer timer;
        timer.start();
        if (!driver.start() || !watchForEnd(driver, run))
            return 0;
        shortest = std::min(shortest, timer.nsecsElapsed() / 1000);
    }
    return shortest;
}

TEST_F(StartStop, AThousandStopsAtRandomMomentsEachLeaveTheRightDigestOrNone)
{
    // So much that reading it takes no less than what the window does about a run.
    const std::string bytes = blocksOfBytes(768);
    const QString digest = sha256Hex(bytes);
    MainWindowDriver driver({write("blocks", bytes)});
    std::mt19937 random(kSeed);
    std::uniform_int_distribution<qint64> moment(0, runMicroseconds(driver));
    int stopped = 0;
    for (int cycle = 1; cycle <= kCycles; ++cycle) {
        const int ended = driver.runsEnded();
        ASSERT_TRUE(driver.start());
        // The stop's random moment, from before the worker has begun to after it has ended; half of the stops
        // come while the window knows nothing of the start yet.
        if (cycle % 2 == 0)
            QCoreApplication::processEvents();
        QThread::usleep(static_cast<unsigned long>(moment(random)));
        driver.press(Qt::Key_F8);
        ASSERT_TRUE(watchForEnd(driver, ended)) << "cycle " << cycle;
        const bool isStopped = driver.status() == errorStatus("Hash calculation was canceled");
        ASSERT_TRUE(isStopped || driver.status() == successStatus()) << driver.status();
        ASSERT_EQ(driver.hex(), isStopped ? "" : digest) << "cycle " << cycle;
        ASSERT_EQ(driver.disabled(), QStringList()) << "cycle " << cycle;
        stopped += isStopped ? 1 : 0;
    }
    EXPECT_GT(stopped, kCycles / 50) << "hardly any stop came in time";
    EXPECT_LT(stopped, kCycles - kCycles / 50) << "hardly any run was left to its end";
}

} // namespace
} // namespace quillon::tests
