// Files that change or fail while they are read, as they do on Unix.

#include "app/MainWindowTest.h"
#include "support/ReadFaults.h"

#include <cerrno>
#include <filesystem>

namespace quillon::tests {
namespace {

constexpr unsigned kBlocks = 4;

class ReadFault : public MainWindowTest
{
protected:
    /// Lets `happen` befall the file when a part of it has been read.
    void startAndMeanwhile(const std::function<void()>& happen)
    {
        faults.holdFrom(3);
        driver.press(Qt::Key_F5);
        ASSERT_TRUE(waitFor([this] { return faults.holds() == 1; }));
        happen();
        faults.release();
    }

    const std::string bytes = blocksOfBytes(kBlocks);
    const QString file = write("blocks", bytes);
    const std::filesystem::path path = folder.file("blocks");
    MainWindowDriver driver{{file}};
    // Behind the driver, so that no worker is held when that waits for it.
    ReadFaults faults{file.toStdString()};
};

TEST_F(ReadFault, AFileRemovedInMidRunIsDigestedToItsEnd)
{
    startAndMeanwhile([this] { ASSERT_TRUE(std::filesystem::remove(path)); });
    ASSERT_TRUE(driver.waitForEnd());
    EXPECT_EQ(driver.status(), successStatus());
    EXPECT_EQ(driver.hex(), sha256Hex(bytes));
}

TEST_F(ReadFault, AFileThatGrowsInMidRunIsDigestedAsFarAsItWentAtTheStart)
{
    startAndMeanwhile([this] { std::filesystem::resize_file(path, 2 * bytes.size()); });
    ASSERT_TRUE(driver.waitForEnd());
    EXPECT_EQ(driver.hex(), sha256Hex(bytes));
}

TEST_F(ReadFault, AFileTruncatedInMidRunIsWaitedForUntilTheStopAndGivesNoDigest)
{
    startAndMeanwhile([this] { std::filesystem::resize_file(path, 0); });
    ASSERT_TRUE(waitFor([this] { return faults.reads() > 1000; }));
    EXPECT_EQ(driver.runsEnded(), 0);
    driver.press(Qt::Key_F8);
    ASSERT_TRUE(driver.waitForEnd());
    EXPECT_EQ(driver.status(), errorStatus("Hash calculation was canceled"));
    EXPECT_EQ(driver.hex() + driver.base64(), "");
}

TEST_F(ReadFault, AReadErrorInMidRunIsNamedWithBothItsNumbers)
{
    faults.fail(3, EIO);
    ASSERT_TRUE(driver.run());
    EXPECT_EQ(faults.failures(), 1U);
    EXPECT_EQ(driver.status(), errorStatus("Input/output error (error: 1/5,5/60)"));
    EXPECT_EQ(driver.hex() + driver.base64(), "");
    EXPECT_EQ(driver.caption(), "Calculated hash for the file");
    EXPECT_EQ(driver.disabled(), QStringList());
    ASSERT_TRUE(driver.run());
    EXPECT_EQ(driver.hex(), sha256Hex(bytes));
}

TEST_F(ReadFault, AnInterruptedReadIsMadeAgain)
{
    faults.fail(2, EINTR);
    ASSERT_TRUE(driver.run());
    EXPECT_EQ(faults.failures(), 1U);
    EXPECT_EQ(faults.reads(), kBlocks + 1);
    EXPECT_EQ(driver.hex(), sha256Hex(bytes));
}

} // namespace
} // namespace quillon::tests
