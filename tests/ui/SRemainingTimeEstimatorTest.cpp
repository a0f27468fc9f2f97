#include "ui/SRemainingTimeEstimator.h"

#include "support/CaseTable.h"

#include <gtest/gtest.h>

namespace quillon::tests {
namespace {

/// Whether it is known, then hours, minutes and seconds.
std::string timeAt(SRemainingTimeEstimator& estimator, std::uint64_t pos, std::uint32_t tick)
{
    std::uint32_t time[] = {99, 99, 99};
    const bool isKnown = estimator.estimate(pos, tick, time[0], time[1], time[2]);
    return (isKnown ? "" : "unknown ") + std::to_string(time[0]) + ':' + std::to_string(time[1]) + ':' +
           std::to_string(time[2]);
}

TEST(RemainingTime, IsWhatTheTableSays)
{
    SRemainingTimeEstimator estimator;
    for (const CaseRow& row : readCaseTable("ui/remaining-time.txt")) {
        const auto number = [&row](std::size_t cell) { return std::stoull(row.at(cell)); };
        if (row[0] == "reset")
            estimator.reset();
        else if (row[0] == "begin")
            estimator.begin(number(1), static_cast<std::uint32_t>(number(2)));
        else if (row[0] == "tolerance")
            estimator.tolerance = std::stod(row[1]);
        else
            EXPECT_EQ(timeAt(estimator, number(0), static_cast<std::uint32_t>(number(1))), row[2])
                << inBrackets(row);
    }
}

TEST(RemainingTime, FollowsTheLast1024IntervalsOnly)
{
    SRemainingTimeEstimator estimator;
    estimator.begin(1'000'000, 0);
    std::uint32_t tick = 0;
    std::uint64_t pos = 0;
    for (int slow = 0; slow < 1024; ++slow)
        timeAt(estimator, ++pos, tick += 1'000);
    for (int fast = 0; fast < 1023; ++fast)
        timeAt(estimator, pos += 100, tick += 100);
    EXPECT_EQ(timeAt(estimator, pos + 100, tick + 100), "0:14:56") << "896576 bytes at 1000 a second";
}

} // namespace
} // namespace quillon::tests
