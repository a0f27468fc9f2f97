// The end of the window while a run goes on, which is slowed down in its reads.

#include "app/MainWindowTest.h"
#include "support/ReadFaults.h"

#include <QElapsedTimer>

namespace quillon::tests {
namespace {

constexpr unsigned kBlocks = 500;
constexpr std::chrono::milliseconds kReadDelay{100};

// A fraction of what the run would take to its end.
constexpr qint64 kPromptMs = 10'000;

class Close : public MainWindowTest
{
protected:
    Close() { faults.delayEach(kReadDelay); }

    const QString file = write("blocks", blocksOfBytes(kBlocks));
    ReadFaults faults{file.toStdString()};
    QElapsedTimer timer;
};

TEST_F(Close, DuringARunEndsItPromptlyAndWaitsForTheWorker)
{
    auto driver = std::make_unique<MainWindowDriver>(QStringList{file});
    driver->press(Qt::Key_F5);
    ASSERT_TRUE(waitFor([this] { return faults.reads() > 1; }));
    timer.start();
    driver->window().close();
    EXPECT_FALSE(driver->window().isVisible());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    driver.reset();
    EXPECT_LT(timer.elapsed(), kPromptMs);
    const unsigned reads = faults.reads();
    EXPECT_LT(reads, kBlocks);
    EXPECT_FALSE(QTest::qWaitFor([&] { return faults.reads() > reads; }, 3 * kReadDelay.count()));
}

TEST_F(Close, RightAfterAStartIsNotLostOnAWorkerThatHasNotBegun)
{
    timer.start();
    for (int round = 0; round < 20; ++round) {
        MainWindowDriver driver({file});
        QTest::keyClick(&driver.window(), Qt::Key_F5);
    }
    EXPECT_LT(timer.elapsed(), 2 * kPromptMs);
}

} // namespace
} // namespace quillon::tests
