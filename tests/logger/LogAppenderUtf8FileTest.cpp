#include "logger/LogFileTest.h"

#include <atomic>
#include <cstdio>
#include <map>
#include <sstream>
#include <vector>

namespace quillon::logger {
namespace {

using tests::lineOf;
using tests::waitUntil;
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

/// What stands behind `number`: longer than a page now and then, so that lines lie across every buffer's end.
std::string tailOf(int number)
{
    return std::string(static_cast<std::size_t>(number % 97 == 0 ? 9000 : number % 31), 'x') + '.';
}

/// Appends numbered lines for as long as `goesOn` answers true for the next number.
template <class GoesOn>
void appendNumbers(LogAppenderUtf8File& appender, std::uint32_t thread, GoesOn goesOn)
{
    for (int i = 0; goesOn(i); ++i) {
        const std::string message = std::to_string(i) + ' ' + tailOf(i);
        appender.append(0, 1, thread, ELogLevel::Error, "test", message.c_str(), 0);
    }
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

/// How many lines of each thread there are; nothing where one is torn or out of order.
std::map<int, int> wholeLines(const std::string& content)
{
    std::map<int, int> counts;
    std::map<int, int> latest;
    std::istringstream stream(content);
    for (std::string line; std::getline(stream, line);) {
        int thread = 0;
        int number = 0;
        int end = 0;
        const int read =
            std::sscanf(line.c_str(), "[ERROR] [00001] [%5d] [test] %d %n", &thread, &number, &end);
        const bool isWhole = read == 2 && line.substr(static_cast<std::size_t>(end)) == tailOf(number);
        if (!isWhole || (counts[thread]++ > 0 && latest[thread] >= number))
            return {};
        latest[thread] = number;
    }
    return counts;
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

class FullSpeed : public LogAppenderUtf8FileTest
{
protected:
    /// Lets the threads of `start`, which are given when to go on, fill several batches.
    template <class Start>
    void logAtFullSpeed(Start start) const
    {
        constexpr std::uintmax_t kSeveralBatchesBytes = 5'000'000;
        std::atomic<bool> isEnough{false};
        const std::vector<std::jthread> threads = start([&](int) { return !isEnough.load(); });
        EXPECT_TRUE(waitUntil([&] {
            std::error_code missing;
            const std::uintmax_t size = std::filesystem::file_size(path, missing);
            return !missing && size > kSeveralBatchesBytes;
        }));
        isEnough = true;
    }
};

TEST_F(FullSpeed, OfEightThreadsTearsAndSwapsNoLineAndTheStopIsQuick)
{
    logAtFullSpeed([&](auto goesOn) { return eightThreads(*appender, goesOn); });
    const auto begin = std::chrono::steady_clock::now();
    appender.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
    EXPECT_FALSE(wholeLines(content()).empty());
}

TEST_F(FullSpeed, OfTwoWritersOfOneFileTearsNoLine)
{
    LogAppenderUtf8File other(2, tests::utf8Name(path));
    ASSERT_TRUE(err::succeeded(other.start()));
    logAtFullSpeed([&](auto goesOn) {
        std::vector<std::jthread> threads;
        threads.emplace_back([&, goesOn] { appendNumbers(*appender, 1, goesOn); });
        threads.emplace_back([&, goesOn] { appendNumbers(other, 2, goesOn); });
        return threads;
    });
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
