#include "logger/Log.h"

#include "platform/Clock.h"
#include "platform/Process.h"
#include "support/PrintResultCode.h"
#include "support/RecordingAppender.h"

#include <gtest/gtest.h>

#include <thread>

namespace quillon::logger {
namespace {

/// A sender of the test's own with every level on and one appender.
class Log : public testing::Test
{
protected:
    Log()
    {
        getLogSender()->setLevel(ELogLevel::Trace);
        addRecorder(1);
    }
    ~Log() override { getLogSender()->release(); }

    static internal::LogAppenders<char>& appenders() { return getLogSender()->appenders(); }

    void addRecorder(std::uint64_t identifier, std::function<void()> onLine = {})
    {
        auto* const recorder = new tests::RecordingAppender(identifier, lines, std::move(onLine));
        ASSERT_EQ(appenders().addAppender(recorder), err::ResultCode{});
    }

    template <class Write>
    std::string messageOf(Write write)
    {
        lines.clear();
        log(ELogLevel::Error, "test", write);
        return lines.empty() ? "no line" : lines.front().message;
    }

    tests::Lines lines;
};

TEST_F(Log, ValuesOfEveryTypeHaveTheirTextAndManipulatorsEndWithTheirLine)
{
    const auto values = [](auto& record) {
        record << short{-1} << static_cast<unsigned short>(2) << -3 << 4U << -5L << 6UL << -7LL << 8ULL << " "
               << 1234.5F << " " << -2.5 << " " << 3.5L << true << false << hex << 255 << dec << 255 << " "
               << fixed << 1.5 << " " << scientific << 1.5 << endl
               << hex;
    };
    const auto others = [](auto& record) {
        const char* const noText = nullptr;
        const wchar_t* const noWideText = nullptr;
        record << 16 << " " << 1.5 << " " << err::ResultCode{3, 4} << " "
               << err::ResultCodes{{1, 2}, {3, 4}, {5, 6}} << " "
               << std::pair(err::ResultCode{1, 2}, err::ResultCode{3, 4}) << " "
               << reinterpret_cast<const void*>(std::uintptr_t{0xABC}) << std::string(" ") << noText
               << noWideText << L"\u6587" << std::wstring(L"\U0001F600");
    };
    EXPECT_EQ(messageOf(values), "-12-34-56-78 1234.5 -2.5 3.510ff255 1.500000 1.500000e+00\n");
    EXPECT_EQ(messageOf(others), "16 1.5 3/4 1/2,3/4,5/6 1/2,3/4 0xabc \xE6\x96\x87\xF0\x9F\x98\x80");
}

TEST_F(Log, ALineTellsWhenAndWhereItWasMade)
{
    const std::uint64_t before = platform::localTimeTicks();
    std::uint32_t threadId = 0;
    std::thread([&] {
        threadId = platform::currentThreadId();
        log(ELogLevel::Debug, "hash", [](auto&) {});
    }).join();
    const auto& line = lines.at(0);
    EXPECT_TRUE(line.time >= before && line.time <= platform::localTimeTicks());
    EXPECT_EQ(line.processId, platform::currentProcessId());
    EXPECT_EQ(line.threadId, threadId);
    EXPECT_EQ(line.category, "hash");
}

TEST_F(Log, LinesUpToTheThresholdAreMadeAndNoOthers)
{
    std::string made;
    for (const LogLevelName& threshold : logLevelNames) {
        getLogSender()->setLevel(threshold.id);
        for (const LogLevelName& level : logLevelNames)
            log(level.id, "test", [&](auto&) { made += level.shortName[0]; });
        made += ' ';
    }
    EXPECT_EQ(made, " F FE FEW FEWI FEWID FEWIDT ");
    EXPECT_EQ(lines.size(), 21U);
    EXPECT_EQ(lines.back().level, ELogLevel::Trace);
}

TEST_F(Log, TheSenderAndItsAppendersStayUntilTheLastStatementEnds)
{
    int left = -1;
    const auto write = [&](auto& record) {
        left = getLogSender()->release();
        record << "last";
    };
    EXPECT_EQ(messageOf(write), "last");
    EXPECT_EQ(left, 1);
    EXPECT_FALSE(appenders().isAppenderEnabled(1));
}

TEST_F(Log, AppendersWithIdentifiersOfTheirOwnGetALineEvenIfOneRemovesThemAll)
{
    std::string order;
    addRecorder(3, [&] { order += '3'; });
    addRecorder(2, [&] {
        order += '2';
        appenders().removeAllAppenders();
    });
    tests::RecordingAppender known(2, lines);
    EXPECT_EQ(appenders().addAppender(&known), err::programError(err::kAlreadyExists));
    EXPECT_EQ(messageOf([](auto& record) { record << "kept"; }), "kept");
    EXPECT_EQ(messageOf([](auto& record) { record << "lost"; }), "no line");
    EXPECT_EQ(order, "23");
}

} // namespace
} // namespace quillon::logger
