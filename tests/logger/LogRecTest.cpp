#include "logger/LogRec.h"

#include "platform/Clock.h"
#include "platform/Process.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <locale>
#include <string>
#include <thread>
#include <vector>

namespace quillon::logger {
namespace {

/// A sender that keeps its lines and counts its references.
class ListSender final : public internal::ILogSenderBase<char>
{
public:
    int addRef() override { return ++references; }
    int release() override { return --references; }
    [[nodiscard]] bool isEnabled(ELogLevel level) const override { return level <= threshold; }
    void send(const internal::LogLine<char>& line) override { lines.push_back(line); }

    int references = 0;
    ELogLevel threshold = ELogLevel::Trace;
    std::vector<internal::LogLine<char>> lines;
};

/// The message of a record into which `write` streams.
template <class Write>
std::string messageOf(Write write)
{
    ListSender sender;
    {
        LogRec<char> record(&sender, ELogLevel::Debug, "test");
        write(record);
    }
    return sender.lines.empty() ? "no line" : sender.lines.front().message;
}

template <class Value>
std::string textOf(const Value& value)
{
    return messageOf([&](auto& record) { record << value; });
}

TEST(LogRec, NumbersOfEveryTypeAreWritten)
{
    EXPECT_EQ(textOf(short{-1}) + textOf(static_cast<unsigned short>(2)), "-12");
    EXPECT_EQ(textOf(-3) + textOf(4U) + textOf(-5L) + textOf(6UL), "-34-56");
    EXPECT_EQ(textOf(INT64_MIN), "-9223372036854775808");
    EXPECT_EQ(textOf(UINT64_MAX), "18446744073709551615");
    EXPECT_EQ(textOf(-7LL) + textOf(8ULL), "-78");
    EXPECT_EQ(textOf(1.5F) + ' ' + textOf(-2.5) + ' ' + textOf(3.5L), "1.5 -2.5 3.5");
    EXPECT_EQ(textOf(true) + textOf(false), "10");
}

TEST(LogRec, PairsAreWrittenWithSlashesAndCommas)
{
    EXPECT_EQ(textOf(err::ResultCode{3, 4}), "3/4");
    EXPECT_EQ(textOf(std::pair(err::ResultCode{1, 2}, err::ResultCode{3, 4})), "1/2,3/4");
    EXPECT_EQ(textOf(err::ResultCodes{{1, 2}, {3, 4}, {5, 6}}), "1/2,3/4,5/6");
}

TEST(LogRec, TextIsWrittenAsUtf8AndANullPointerNotAtAll)
{
    EXPECT_EQ(textOf(L"\u00E4\u6587") + textOf(std::wstring(L"\U0001F600")),
              "\xC3\xA4\xE6\x96\x87\xF0\x9F\x98\x80");
    EXPECT_EQ(textOf("\xC3\xA4") + textOf(std::string("b")), "\xC3\xA4"
                                                             "b");
    const char* const noText = nullptr;
    const wchar_t* const noWideText = nullptr;
    EXPECT_EQ(messageOf([&](auto& record) { record << "a" << noText << noWideText << "b"; }), "ab");
}

TEST(LogRec, APointerIsWrittenAsANumber)
{
    EXPECT_EQ(textOf(reinterpret_cast<const void*>(std::uintptr_t{0xABC})), "0xabc");
}

TEST(LogRec, ManipulatorsChangeWhatFollows)
{
    EXPECT_EQ(messageOf([](auto& record) { record << hex << 255 << dec << 255 << endl; }), "ff255\n");
    EXPECT_EQ(messageOf([](auto& record) { record << fixed << 1.5 << " " << scientific << 1.5; }),
              "1.500000 1.500000e+00");
}

TEST(LogRec, NumbersLookTheSameInEveryLocale)
{
    struct Grouping : std::numpunct<char>
    {
        [[nodiscard]] char do_decimal_point() const override { return ','; }
        [[nodiscard]] char do_thousands_sep() const override { return '.'; }
        [[nodiscard]] std::string do_grouping() const override { return "\3"; }
    };
    const std::locale former = std::locale::global(std::locale(std::locale::classic(), new Grouping));
    EXPECT_EQ(textOf(1234567), "1234567");
    EXPECT_EQ(textOf(1234.5), "1234.5");
    std::locale::global(former);
}

TEST(LogRec, ALineTellsWhenAndWhereItWasMade)
{
    ListSender sender;
    const std::uint64_t before = platform::localTimeTicks();
    std::uint32_t threadId = 0;
    std::thread([&] {
        threadId = platform::currentThreadId();
        LogRec<char>(&sender, ELogLevel::Error, "hash") << "text";
    }).join();
    ASSERT_EQ(sender.lines.size(), 1U);
    const internal::LogLine<char>& line = sender.lines.front();
    EXPECT_EQ(line.level, ELogLevel::Error);
    EXPECT_EQ(line.category, "hash");
    EXPECT_EQ(line.processId, platform::currentProcessId());
    EXPECT_EQ(line.threadId, threadId);
    EXPECT_GE(line.time, before);
    EXPECT_LE(line.time, platform::localTimeTicks());
    EXPECT_EQ(line.extra, 0U);
}

TEST(LogRec, HoldsAReferenceToItsSenderForItsLife)
{
    ListSender sender;
    {
        const LogRec<char> record(&sender, ELogLevel::Debug, "test");
        EXPECT_EQ(sender.references, 1);
    }
    EXPECT_EQ(sender.references, 0);
}

TEST(LogRec, AFlushByHandSendsTheLineTwice)
{
    ListSender sender;
    {
        LogRec<char> record(&sender, ELogLevel::Debug, "test");
        record << "a";
        record.flushRecord();
        record << "b";
    }
    ASSERT_EQ(sender.lines.size(), 2U);
    EXPECT_EQ(sender.lines[0].message, "a");
    EXPECT_EQ(sender.lines[1].message, "ab");
}

TEST(LogRec, AtALevelThatIsOffNothingIsSentAndNumbersAreNotEvenFormatted)
{
    ListSender sender;
    sender.threshold = ELogLevel::Error;
    {
        LogRec<char> record(&sender, ELogLevel::Debug, "test");
        record << 1 << err::ResultCode{3, 4} << endl << "text";
        record.flushRecord();
        EXPECT_TRUE(sender.lines.empty());
        sender.threshold = ELogLevel::Debug;
    }
    ASSERT_EQ(sender.lines.size(), 1U);
    EXPECT_EQ(sender.lines.front().message, "text");
}

TEST(LogRec, WithoutASenderEverythingIsIgnored)
{
    LogRec<char> record(nullptr, ELogLevel::Error, "test");
    record << "text" << L"wide" << 1 << 2.5 << endl << hex << err::ResultCode{3, 4};
    EXPECT_NO_THROW(record.flushRecord());
}

} // namespace
} // namespace quillon::logger
