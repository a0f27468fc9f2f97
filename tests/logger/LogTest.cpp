#include "logger/Log.h"

#include "platform/Clock.h"
#include "platform/Process.h"
#include "support/PrintResultCode.h"
#include "support/RecordingAppender.h"

#include <gtest/gtest.h>

namespace quillon::logger {
namespace {

/// A sender of the test's own with every level on and one appender.
class Log : public testing::Test
{
protected:
    Log()
    {
        getLogSender()->setLevel(ELogLevel::Trace);
        EXPECT_EQ(appenders().addAppender(new tests::RecordingAppender(1, lines)), err::ResultCode{});
    }
    ~Log() override { getLogSender()->release(); }

    static internal::LogAppenders<char>& appenders() { return getLogSender()->appenders(); }

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
        record << short{-1} << -3L << 8ULL << true << std::string(" ") << -2.5 << hex << 255 << dec << 255
               << " " << fixed << 1.5 << " " << scientific << 1.5 << endl
               << hex;
    };
    const auto others = [](auto& record) {
        record << 16 << " " << 1.5 << " " << err::ResultCode{3, 4} << " "
               << err::ResultCodes{{1, 2}, {3, 4}, {5, 6}} << " "
               << std::pair(err::ResultCode{1, 2}, err::ResultCode{3, 4}) << " "
               << static_cast<const char*>(nullptr) << static_cast<const wchar_t*>(nullptr) << L"\u6587"
               << std::wstring(L"\U0001F600");
    };
    EXPECT_EQ(messageOf(values), "-1-381 -2.5ff255 1.500000 1.500000e+00\n");
    EXPECT_EQ(messageOf(others), "16 1.5 3/4 1/2,3/4,5/6 1/2,3/4 \xE6\x96\x87\xF0\x9F\x98\x80");
}

TEST_F(Log, LinesUpToTheThresholdAreMadeAndTellWhenAndWhere)
{
    const std::uint64_t before = platform::localTimeTicks();
    std::string made;
    for (const LogLevelName& threshold : logLevelNames) {
        getLogSender()->setLevel(threshold.id);
        for (const LogLevelName& level : logLevelNames)
            log(level.id, "hash", [&](auto&) { made += level.shortName[0]; });
        made += ' ';
    }
    EXPECT_EQ(made, " F FE FEW FEWI FEWID FEWIDT ");
    ASSERT_EQ(lines.size(), 21U);
    EXPECT_EQ(lines.back().level, ELogLevel::Trace);
    EXPECT_TRUE(lines.back().time >= before && lines.back().time <= platform::localTimeTicks());
    EXPECT_EQ(lines.back().processId, platform::currentProcessId());
    EXPECT_EQ(lines.back().threadId, platform::currentThreadId());
    EXPECT_EQ(lines.back().category, "hash");
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

} // namespace
} // namespace quillon::logger
