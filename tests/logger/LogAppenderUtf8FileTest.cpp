#include "logger/LogFileTest.h"
#include "logger/NumberedLines.h"

#include <map>
#include <vector>

namespace quillon::logger {
namespace {

using tests::appendNumbers;
using tests::lineOf;
using tests::waitUntil;
using tests::wholeLines;
using LogAppenderUtf8FileTest = tests::LogFileTest;

constexpr std::uintmax_t kMaxBytes = 20'000'000;
constexpr int kMaxWaiting = 10'000;

TEST_F(LogAppenderUtf8FileTest, TheFolderAndTheFileAreMadeWithTheFirstLine)
{
    EXPECT_FALSE(std::filesystem::exists(path));
    append("caf\xC3\xA9\r\n\xE6\x96\x87");
    EXPECT_TRUE(waitForContent(lineOf("caf\xC3\xA9\r\n\xE6\x96\x87"))) << content();
}

TEST_F(LogAppenderUtf8FileTest, ANullTextCountsAsEmptyAndAMessageEndsAtItsFirstZero)
{
    appender->append(0, 1, 2, ELogLevel::Error, nullptr, nullptr, 0);
    append(std::string("cut\0off", 7));
    EXPECT_TRUE(waitForContent("[ERROR] [00001] [00002] [] \n" + lineOf("cut"))) << content();
}

TEST_F(LogAppenderUtf8FileTest, AnotherStartContinuesTheFileOnALineOfItsOwn)
{
    append("first");
    ASSERT_TRUE(waitForContent(lineOf("first")));
    appender.reset();
    std::ofstream(path, std::ios::app | std::ios::binary) << "a line that was cu";
    restart();
    append("second");
    EXPECT_TRUE(waitForContent(lineOf("first") + "a line that was cu\n" + lineOf("second"))) << content();
}

/// The file with `bytes` line feeds, before or while the appender has it open.
class LogSize : public LogAppenderUtf8FileTest, public testing::WithParamInterface<bool>
{
protected:
    void makeFileOf(std::uintmax_t bytes)
    {
        append("opens the file");
        ASSERT_TRUE(waitForContent(lineOf("opens the file")));
        if (!GetParam())
            appender.reset();
        std::ofstream(path, std::ios::binary | std::ios::trunc) << std::string(bytes, '\n');
        if (!GetParam())
            restart();
    }

    [[nodiscard]] std::uintmax_t sizeAfterALine() const
    {
        const std::uintmax_t before = std::filesystem::file_size(path);
        append("next");
        EXPECT_TRUE(waitUntil([&] {
            const std::uintmax_t now = std::filesystem::file_size(path);
            return now != before && now != 0;
        }));
        return std::filesystem::file_size(path);
    }
};

TEST_P(LogSize, AFileAtTheBoundIsKept)
{
    makeFileOf(kMaxBytes);
    EXPECT_EQ(sizeAfterALine(), kMaxBytes + lineOf("next").size());
}

TEST_P(LogSize, AFileOfOneByteMoreIsEmptied)
{
    makeFileOf(kMaxBytes + 1);
    append("next");
    EXPECT_TRUE(waitForContent(lineOf("next")));
}

INSTANTIATE_TEST_SUITE_P(BeforeAndWhileItIsOpen, LogSize, testing::Bool());

TEST_F(LogAppenderUtf8FileTest, TheLineAfterTenThousandWaitingOnesIsDropped)
{
    // Nothing is written before the start, so that all lines wait.
    appender = std::make_unique<LogAppenderUtf8File>(1, tests::utf8Name(path));
    std::string expected;
    for (int i = 0; i <= kMaxWaiting; ++i) {
        append(std::to_string(i));
        expected += i < kMaxWaiting ? lineOf(std::to_string(i)) : "";
    }
    ASSERT_TRUE(err::succeeded(appender->start()));
    EXPECT_TRUE(waitForContent(expected));
    append("room again");
    EXPECT_TRUE(waitForContent(expected + lineOf("room again")));
}

/// Eight threads that log at once; destruction waits for them.
template <class GoesOn>
std::vector<std::jthread> eightThreads(LogAppenderUtf8File& appender, GoesOn goesOn)
{
    std::vector<std::jthread> threads;
    for (std::uint32_t thread = 0; thread < 8; ++thread)
        threads.emplace_back([&appender, thread, goesOn] { appendNumbers(appender, thread, goesOn); });
    return threads;
}

TEST_F(LogAppenderUtf8FileTest, EightThreadsLoseNoLineWhileThereIsRoom)
{
    constexpr int kOfEach = kMaxWaiting / 8;
    eightThreads(*appender, [](int i) { return i < kOfEach; }).clear();
    std::map<int, int> all;
    for (int thread = 0; thread < 8; ++thread)
        all[thread] = kOfEach;
    EXPECT_TRUE(waitUntil([&] { return wholeLines(content()) == all; }));
}

TEST_F(LogAppenderUtf8FileTest, EightThreadsAtFullSpeedTearAndSwapNoLineAndTheStopIsQuick)
{
    tests::logAtFullSpeed(path, [&](auto goesOn) { return eightThreads(*appender, goesOn); });
    const auto begin = std::chrono::steady_clock::now();
    appender.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
    EXPECT_FALSE(wholeLines(content()).empty());
}

TEST_F(LogAppenderUtf8FileTest, AFolderInTheFilesPlaceIsLeftAloneUntilItIsGone)
{
    std::filesystem::create_directories(path);
    append("lost");
    std::filesystem::remove(path);
    EXPECT_TRUE(logsAgain("kept"));
}

} // namespace
} // namespace quillon::logger
