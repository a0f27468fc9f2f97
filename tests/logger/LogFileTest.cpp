#include "logger/LogFileTest.h"

namespace quillon::logger {
namespace {

using tests::lineOf;
using tests::LogFileTest;

TEST(LogLine, HasEachFieldInItsPlace)
{
    // Counts of 100 ns since 1601, by "date -u +%s": (seconds + 11644473600) * 10000000, and the fraction.
    constexpr std::uint64_t kInNovember2026 = 134'391'286'321'239'999;
    constexpr std::uint64_t kOnLeapDay2000 = 125'963'423'990'010'000;
    const std::pair<internal::LogLine<char>, const char*> rows[] = {
        {{kInNovember2026, 4212, 4932, ELogLevel::Error, "mainwindow", "Failed to create file logger.", 0},
         "[2026.11.14 11:17:12:123] [ERROR] [04212] [04932] [mainwindow] Failed to create file logger."},
        {{kOnLeapDay2000, 1, 4294967295, ELogLevel::Information, "hash", "", 0},
         "[2000.02.29 23:59:59:001] [INFRM] [00001] [4294967295] [hash] "},
        {{1, 0, 0, ELogLevel::Trace, "", "a\nb", 0},
         "[1601.01.01 00:00:00:000] [TRACE] [00000] [00000] [] a\nb"},
        {{0, 7, 8, ELogLevel::Fatal, "x", "", 0}, "[FATAL] [00007] [00008] [x] "},
        {{0, 7, 8, ELogLevel::Warning, "x", "", 0}, "[WARNG] [00007] [00008] [x] "},
        {{0, 7, 8, ELogLevel::Debug, "x", "", 0}, "[DEBUG] [00007] [00008] [x] "},
        {{1, 7, 8, ELogLevel{9}, "x", "y", 0},
         "[1601.01.01 00:00:00:000] [1601.01.01 00:00:00:000] [00007] [00008] [x] y"},
    };
    std::string text = "what stood here before";
    for (const auto& [line, expected] : rows) {
        internal::formatLine(text, line);
        EXPECT_EQ(text, expected);
    }
}

TEST_F(LogFileTest, IsMadeWithTheFirstLineAndTextsAreWrittenAsTheyAre)
{
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
    ASSERT_TRUE(logsAfter("", "caf\xC3\xA9\r\n\xE6\x96\x87")) << content();
    const std::string before = content();
    appender->append(0, 1, 2, ELogLevel::Error, nullptr, nullptr, 0);
    EXPECT_TRUE(logsAfter(before + "[ERROR] [00001] [00002] [] \n", "text")) << content();
}

TEST_F(LogFileTest, IsContinuedOnALineOfItsOwnByAnotherStart)
{
    ASSERT_TRUE(logsAfter("", "first"));
    restart();
    ASSERT_TRUE(logsAfter(lineOf("first"), "second")) << content();
    appender.reset();
    std::ofstream(path, std::ios::app | std::ios::binary) << "a line that was cu";
    restart();
    EXPECT_TRUE(logsAfter(content() + '\n', "third")) << content();
}

TEST_F(LogFileTest, IsEmptiedBeforeTheNextLineOnceItHasMoreThanTwentyMillionBytes)
{
    for (const bool isOpen : {false, true}) {
        ASSERT_TRUE(logsAgain("opens the file"));
        for (const auto& former : {std::string(20'000'000, '\n'), std::string(20'000'001, '\n')}) {
            if (!isOpen)
                appender.reset();
            std::ofstream(path, std::ios::binary | std::ios::trunc) << former;
            if (!isOpen)
                restart();
            EXPECT_TRUE(logsAfter(former.size() > 20'000'000 ? "" : former, "next")) << isOpen;
        }
    }
}

TEST_F(LogFileTest, LosesTheLineAfterTenThousandWaitingOnes)
{
    // Nothing is written before the start, so that all lines wait.
    appender = std::make_unique<LogAppenderUtf8File>(1, tests::utf8Name(path));
    std::string expected;
    for (int i = 0; i <= 10'000; ++i) {
        append(std::to_string(i));
        expected += i < 10'000 ? lineOf(std::to_string(i)) : "";
    }
    ASSERT_TRUE(err::succeeded(appender->start()));
    EXPECT_TRUE(tests::waitUntil([&] { return content() == expected; }));
    EXPECT_TRUE(logsAfter(expected, "room again"));
}

TEST_F(LogFileTest, HasEveryLineOfEightThreadsWholeAndInOrder)
{
    expectAllLinesOfEightThreads(*appender, *appender);
}

TEST_F(LogFileTest, IsMadeOnceTheFolderInItsPlaceIsGone)
{
    std::filesystem::create_directories(path);
    append("lost");
    std::filesystem::remove(path);
    EXPECT_TRUE(logsAgain("kept"));
}

} // namespace
} // namespace quillon::logger
