#include "app/MainWindowTest.h"
#include "support/LauncherBus.h"
#include "support/ReadFaults.h"

namespace quillon::tests {
namespace {

using TaskbarProgressOfTheWindow = MainWindowTest;

TEST_F(TaskbarProgressOfTheWindow, GoesFromNothingOverWholePercentsToHidden)
{
    LauncherBus bus;
    ASSERT_TRUE(bus.isListening());
    const QString file = write("blocks", blocksOfBytes(7));
    MainWindowDriver driver({file});
    ReadFaults faults(file.toStdString());
    const auto waitForUpdates = [&bus](int count) {
        return waitFor([&] { return bus.updates().size() >= count; });
    };
    faults.holdFrom(1);
    driver.press(Qt::Key_F5);
    ASSERT_TRUE(waitForUpdates(1));
    faults.holdFrom(2);
    ASSERT_TRUE(waitForUpdates(2));
    faults.release();
    ASSERT_TRUE(driver.waitForEnd());
    ASSERT_TRUE(waitForUpdates(3));
    // One block in seven is 14.286 percent. The bar leaves as it stood.
    EXPECT_EQ(bus.updates(), QStringList({"shown 0", "shown 0.14", "hidden 0.14"}))
        << bus.updates().join(", ").toStdString();
}

} // namespace
} // namespace quillon::tests
