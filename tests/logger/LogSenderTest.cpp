#include "logger/AllocationCount.h"
#include "logger/Log.h"
#include "support/PrintResultCode.h"
#include "support/RecordingAppender.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace quillon::logger {
namespace {

using tests::Lines;
using tests::RecordingAppender;

constexpr ELogLevel kAllLevels[] = {ELogLevel::Off,     ELogLevel::Fatal,       ELogLevel::Error,
                                    ELogLevel::Warning, ELogLevel::Information, ELogLevel::Debug,
                                    ELogLevel::Trace};

/// Every test starts with a new sender.
class LogSenderTest : public testing::Test
{
protected:
    ~LogSenderTest() override { getLogSender()->release(); }

    static internal::LogAppenders<char>& appenders() { return getLogSender()->appenders(); }

    void addRecorder(std::uint64_t identifier, std::function<void()> onLine = {})
    {
        auto recorder = std::make_unique<RecordingAppender>(identifier, lines, std::move(onLine));
        ASSERT_EQ(appenders().addAppender(recorder.get()), err::ResultCode{});
        static_cast<void>(recorder.release());
    }

    static void logText(ELogLevel level, const char* text = "text")
    {
        log(level, "test", [=](auto& record) { record << text; });
    }

    Lines lines;
};

TEST_F(LogSenderTest, StartsWithItsOwnReferenceAndNoLevelOn)
{
    EXPECT_EQ(getLogSender()->addRef(), 2);
    EXPECT_EQ(getLogSender()->release(), 1);
    for (const ELogLevel level : kAllLevels)
        EXPECT_FALSE(getLogSender()->isEnabled(level));
}

TEST_F(LogSenderTest, TheLastReferenceTakesTheSenderAndItsAppendersAlong)
{
    getLogSender()->setLevel(ELogLevel::Trace);
    addRecorder(1);
    EXPECT_EQ(getLogSender()->release(), 0);
    EXPECT_FALSE(getLogSender()->isEnabled(ELogLevel::Error));
    EXPECT_FALSE(appenders().isAppenderEnabled(1));
}

TEST_F(LogSenderTest, LinesUpToTheThresholdAreSentAndNoOthers)
{
    addRecorder(1);
    for (const ELogLevel threshold : kAllLevels) {
        getLogSender()->setLevel(threshold);
        for (const ELogLevel level : kAllLevels)
            logText(level);
        ASSERT_EQ(lines.size(), static_cast<std::size_t>(threshold));
        for (std::size_t i = 0; i < lines.size(); ++i)
            EXPECT_EQ(lines[i].level, kAllLevels[i + 1]);
        lines.clear();
    }
}

TEST_F(LogSenderTest, AStatementAtALevelThatIsOffTakesNoMemoryAndWritesNothing)
{
    getLogSender()->setLevel(ELogLevel::Information);
    constexpr const char* kCategory = "a category too long to fit into a string without memory of its own";
    const long before = tests::allocationCount();
    log(ELogLevel::Debug, kCategory, [](auto&) { FAIL(); });
    EXPECT_EQ(tests::allocationCount(), before);
    log(ELogLevel::Information, kCategory, [](auto&) {});
    EXPECT_GT(tests::allocationCount(), before);
}

TEST_F(LogSenderTest, AnAppenderThatIsOffReceivesNothingUntilItIsOnAgain)
{
    getLogSender()->setLevel(ELogLevel::Trace);
    addRecorder(1);
    EXPECT_TRUE(appenders().setAppenderEnabled(1, false));
    EXPECT_FALSE(appenders().isAppenderEnabled(1));
    logText(ELogLevel::Error, "lost");
    EXPECT_TRUE(appenders().setAppenderEnabled(1, true));
    logText(ELogLevel::Error, "kept");
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines.front().message, "kept");
    EXPECT_FALSE(appenders().setAppenderEnabled(2, true));
}

TEST_F(LogSenderTest, AnAppenderIsRefusedWhereItOrItsIdentifierIsKnown)
{
    EXPECT_EQ(appenders().addAppender(nullptr), (err::ResultCode{5, 6}));
    auto first = std::make_unique<RecordingAppender>(1, lines);
    ASSERT_EQ(appenders().addAppender(first.get()), err::ResultCode{});
    EXPECT_EQ(appenders().addAppender(first.release()), (err::ResultCode{5, 7}));
    RecordingAppender second(1, lines);
    EXPECT_EQ(appenders().addAppender(&second), (err::ResultCode{5, 7}));
}

TEST_F(LogSenderTest, AppendersAreServedInTheOrderOfTheirIdentifiers)
{
    getLogSender()->setLevel(ELogLevel::Trace);
    std::string order;
    for (const char name : {'3', '1', '2'})
        addRecorder(static_cast<std::uint64_t>(name), [&order, name] { order += name; });
    logText(ELogLevel::Error);
    EXPECT_EQ(order, "123");
}

TEST_F(LogSenderTest, AnAppenderRemovedInTheMiddleOfALineStillGetsIt)
{
    getLogSender()->setLevel(ELogLevel::Trace);
    addRecorder(1, [] { appenders().removeAllAppenders(); });
    addRecorder(2);
    logText(ELogLevel::Error);
    EXPECT_EQ(lines.size(), 2U);
    logText(ELogLevel::Error);
    EXPECT_EQ(lines.size(), 2U);
}

TEST_F(LogSenderTest, AnAppenderAtWorkDoesNotHoldUpOthers)
{
    getLogSender()->setLevel(ELogLevel::Trace);
    addRecorder(1, [] {
        auto others = std::async(std::launch::async, [] { return appenders().setAppenderEnabled(1, true); });
        EXPECT_EQ(others.wait_for(std::chrono::seconds(60)), std::future_status::ready);
    });
    logText(ELogLevel::Error);
}

TEST_F(LogSenderTest, ManyThreadsMayLogAndSwitchAtOnce)
{
    /// Counts only, as lines come from several threads at once.
    std::atomic<int> count{0};
    class Counter final : public internal::LogAppender<char>
    {
    public:
        explicit Counter(std::atomic<int>& count)
            : LogAppender(1)
            , m_count(count)
        {
        }
        void append(std::uint64_t, std::uint32_t, std::uint32_t, ELogLevel, const char*, const char*,
                    std::uint32_t) override
        {
            ++m_count;
        }
        [[nodiscard]] bool isAsynchronous() const override { return false; }

    private:
        std::atomic<int>& m_count;
    };
    ASSERT_EQ(appenders().addAppender(std::make_unique<Counter>(count).release()), err::ResultCode{});
    getLogSender()->setLevel(ELogLevel::Error);
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([i] {
                for (int round = 0; round < 500; ++round) {
                    logText(ELogLevel::Error);
                    getLogSender()->setLevel(i % 2 == 0 ? ELogLevel::Error : ELogLevel::Trace);
                }
            });
        }
    }
    EXPECT_EQ(count, 2000);
}

TEST(LogLevel, NumbersFromOutsideOfTheTableMeanOff)
{
    for (const LogLevelName& name : logLevelNames) {
        EXPECT_EQ(logLevelFromNumber(static_cast<int>(name.id)), name.id);
        EXPECT_EQ(std::string(name.shortName).size(), 5U);
    }
    for (const std::int64_t number : {std::int64_t{-1}, std::int64_t{7}, std::int64_t{1} << 32 | 6})
        EXPECT_EQ(logLevelFromNumber(number), ELogLevel::Off);
}

} // namespace
} // namespace quillon::logger
