#include "ui/SRemainingTimeEstimator.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillon::tests {
namespace {

struct Answer
{
    bool known = false;
    std::uint32_t hours = 99;
    std::uint32_t minutes = 99;
    std::uint32_t seconds = 99;

    friend bool operator==(const Answer&, const Answer&) = default;
    friend void PrintTo(const Answer& answer, std::ostream* stream)
    {
        *stream << (answer.known ? "known " : "unknown ") << answer.hours << ':' << answer.minutes << ':'
                << answer.seconds;
    }
};

constexpr Answer kNothing{true, 0, 0, 0};

class RemainingTime : public testing::Test
{
protected:
    Answer at(std::uint64_t pos, std::uint32_t tick)
    {
        Answer answer;
        answer.known = estimator.estimate(pos, tick, answer.hours, answer.minutes, answer.seconds);
        return answer;
    }

    SRemainingTimeEstimator estimator;
};

TEST_F(RemainingTime, IsSplitIntoHoursMinutesAndSeconds)
{
    estimator.begin(1'000'000, 5'000);
    EXPECT_EQ(at(100, 6'000), (Answer{true, 2, 46, 39})); // 9999 s
    estimator.reset();
    estimator.begin(1'000, 5'000);
    EXPECT_EQ(at(100, 5'500), (Answer{true, 0, 0, 4})); // 4.5 s, cut
    estimator.reset();
    estimator.begin(3'601, 0);
    EXPECT_EQ(at(1, 1'000), (Answer{true, 1, 0, 0}));
}

TEST_F(RemainingTime, IsTheAverageOverAllIntervals)
{
    estimator.begin(1'000, 0);
    at(100, 1'000);
    EXPECT_EQ(at(400, 2'000), (Answer{true, 0, 0, 3})); // 2 s for 400, 600 left
    EXPECT_EQ(at(400, 6'000), (Answer{true, 0, 0, 9})); // a pause slows the average down
}

TEST_F(RemainingTime, IsNothingWithoutARunAndAtItsEnds)
{
    EXPECT_EQ(at(10, 1'000), kNothing);
    estimator.begin(1'000, 0);
    EXPECT_EQ(at(0, 1'000), kNothing);
    EXPECT_EQ(at(1'000, 1'000), kNothing);
    EXPECT_EQ(at(2'000, 1'000), kNothing);
    EXPECT_TRUE(estimator.samples.empty());
    at(500, 1'000);
    EXPECT_EQ(at(499, 2'000), kNothing);
}

TEST_F(RemainingTime, IsUnknownOnceTheCounterHasWrapped)
{
    estimator.begin(1'000, 0xFFFFFF00);
    EXPECT_EQ(at(100, 0xFFFFFFFF).known, true);
    EXPECT_EQ(at(200, 5), (Answer{false, 0, 0, 0}));
    EXPECT_EQ(estimator.lastBytes, 100U);
}

TEST_F(RemainingTime, TakesNoSampleWhileTheClockStands)
{
    estimator.begin(1'000, 100);
    EXPECT_EQ(at(100, 100), kNothing);
    EXPECT_TRUE(estimator.samples.empty());
    EXPECT_EQ(estimator.lastBytes, 100U);
    at(200, 1'100);
    EXPECT_EQ(at(500, 1'100), (Answer{true, 0, 0, 5})); // still 1 s for 100
    EXPECT_EQ(estimator.samples.size(), 1U);
}

TEST_F(RemainingTime, ARunThatEndedByItselfLeavesItsSamplesToTheNext)
{
    estimator.begin(1'000, 0);
    at(100, 1'000);
    at(1'000, 9'000);
    estimator.begin(1'000, 20'000);
    EXPECT_EQ(at(300, 20'000), (Answer{true, 0, 0, 7})); // at the old rate of 100 a second
}

TEST_F(RemainingTime, AResetForgetsTheSamples)
{
    estimator.begin(1'000, 0);
    at(100, 1'000);
    estimator.reset();
    EXPECT_EQ(at(200, 1'500), kNothing);
    estimator.begin(1'000, 20'000);
    EXPECT_EQ(at(300, 20'000), kNothing);
    EXPECT_EQ(estimator.capacity, 1024U);
}

TEST_F(RemainingTime, FollowsTheLast1024IntervalsOnly)
{
    constexpr std::uint32_t kIntervals = 1024;
    constexpr std::uint64_t kBytes = 1'000'000;
    estimator.begin(kBytes, 0);
    for (std::uint32_t slow = 1; slow <= kIntervals; ++slow)
        at(slow, slow * 1'000);
    EXPECT_EQ(estimator.samples.size(), kIntervals);
    EXPECT_EQ(estimator.nextSlot, 0U);

    const std::uint32_t start = kIntervals * 1'000;
    at(kIntervals + 100, start + 100);
    EXPECT_EQ(estimator.nextSlot, 1U);
    Answer last;
    for (std::uint32_t fast = 2; fast <= kIntervals; ++fast)
        last = at(kIntervals + fast * 100, start + fast * 100);
    EXPECT_EQ(estimator.samples.size(), kIntervals);
    EXPECT_EQ(estimator.nextSlot, 0U);
    EXPECT_EQ(last, (Answer{true, 0, 14, 56})); // 896576 bytes left at 1000 a second
}

TEST_F(RemainingTime, WithAToleranceASmallChangeKeepsTheLastEstimate)
{
    estimator.begin(1'000, 0);
    estimator.tolerance = 0.5;
    EXPECT_EQ(at(100, 1'000), (Answer{true, 0, 0, 9}));
    EXPECT_EQ(at(200, 2'000), (Answer{true, 0, 0, 9})); // 8 s differs too little
    EXPECT_EQ(at(900, 2'001), (Answer{true, 0, 0, 0})); // 0.2 s
}

TEST_F(RemainingTime, ATimeBeyondAllMeasureDoesNotOverflow)
{
    estimator.begin(std::numeric_limits<std::uint64_t>::max(), 0);
    EXPECT_EQ(at(1, std::numeric_limits<std::uint32_t>::max()),
              (Answer{true, std::numeric_limits<std::uint32_t>::max(), 0, 0}));
}

} // namespace
} // namespace quillon::tests
