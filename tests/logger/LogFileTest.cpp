#include "logger/LogFileTest.h"

#include "support/CaseTable.h"

namespace quillon::logger {
namespace {

using tests::lineOf;
using tests::LogFileTest;

TEST(LogLine, HasEachFieldInItsPlace)
{
    std::string text = "what stood here before";
    for (const tests::CaseRow& row : tests::readCaseTable("logger/log-lines.txt")) {
        const auto number = [&](std::size_t cell) { return std::stoull(row.at(cell)); };
        internal::formatLine(text, {number(0), static_cast<std::uint32_t>(number(1)),
                                    static_cast<std::uint32_t>(number(2)), static_cast<ELogLevel>(number(3)),
                                    row.at(4), row.at(5), 0});
        EXPECT_EQ(text, row.at(6));
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
    ASSERT_TRUE(logsAfter("", "opens the file"));
    for (const bool isOpen : {true, false}) {
        for (const auto& former : {std::string(20'000'000, '\n'), std::string(20'000'001, '\n')}) {
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
    appender = std::make_unique<Appender>(1, tests::utf8Name(path));
    std::string expected;
    for (int i = 0; i <= 10'000; ++i) {
        append(std::to_string(i));
        expected += i < 10'000 ? lineOf(std::to_string(i)) : "";
    }
    ASSERT_TRUE(err::succeeded(appender->start()));
    EXPECT_TRUE(tests::waitUntil([&] { return content() == expected; }));
    EXPECT_TRUE(logsAfter(expected, "room again"));
}

} // namespace
} // namespace quillon::logger
