#include "logger/LogFile.h"

#include <gtest/gtest.h>

#include <string>

namespace quillon::logger::internal {
namespace {

// Counts of 100 ns since 1601, made with "date -u +%s": (seconds + 11644473600) * 10000000, and the fraction.
constexpr std::uint64_t kInNovember2026 = 134'391'286'321'239'999;
constexpr std::uint64_t kOnLeapDay2000 = 125'963'423'990'010'000;
constexpr std::uint64_t kFirstTick = 1;

TEST(LogLineFormat, WritesEachFieldInItsPlace)
{
    const struct
    {
        LogLine<char> line;
        std::string text;
    } rows[] = {
        {{kInNovember2026, 4212, 4932, ELogLevel::Error, "mainwindow", "Failed to create file logger.", 0},
         "[2026.11.14 11:17:12:123] [ERROR] [04212] [04932] [mainwindow] Failed to create file logger."},
        {{kOnLeapDay2000, 1, 4294967295, ELogLevel::Information, "hash", "", 0},
         "[2000.02.29 23:59:59:001] [INFRM] [00001] [4294967295] [hash] "},
        {{kFirstTick, 0, 0, ELogLevel::Trace, "", "a\nb", 0},
         "[1601.01.01 00:00:00:000] [TRACE] [00000] [00000] [] a\nb"},
        {{0, 7, 8, ELogLevel::Debug, "x", "no time", 0}, "[DEBUG] [00007] [00008] [x] no time"},
        {{kFirstTick, 7, 8, ELogLevel{9}, "x", "y", 0},
         "[1601.01.01 00:00:00:000] [1601.01.01 00:00:00:000] [00007] [00008] [x] y"},
        {{0, 7, 8, ELogLevel{9}, "x", "y", 0}, "[] [00007] [00008] [x] y"},
    };
    std::string text = "what stood here before";
    for (const auto& row : rows) {
        formatLine(text, row.line);
        EXPECT_EQ(text, row.text);
    }
}

} // namespace
} // namespace quillon::logger::internal
