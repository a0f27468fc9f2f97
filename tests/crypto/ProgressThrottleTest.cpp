#include "crypto/ProgressThrottle.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace quillon::crypto::internal {
namespace {

constexpr std::uint32_t kLastTickMs = 0xFFFFFFFF;

TEST(ProgressThrottle, LetsOneReportThroughPerInterval)
{
    ProgressThrottle throttle(400);
    EXPECT_TRUE(throttle.isDue(5000));
    EXPECT_FALSE(throttle.isDue(5000));
    EXPECT_FALSE(throttle.isDue(5399));
    EXPECT_TRUE(throttle.isDue(5400));
    EXPECT_FALSE(throttle.isDue(5799));
}

TEST(ProgressThrottle, TheFirstReportWaitsUntilTheClockHasReachedTheInterval)
{
    ProgressThrottle throttle(400);
    EXPECT_FALSE(throttle.isDue(399));
    EXPECT_TRUE(throttle.isDue(400));
}

TEST(ProgressThrottle, AReportMayComeEarlyWhereTheClockWraps)
{
    ProgressThrottle throttle(400);
    EXPECT_TRUE(throttle.isDue(kLastTickMs - 100));
    EXPECT_TRUE(throttle.isDue(kLastTickMs - 99)) << "the next due time has wrapped to a small number";
}

TEST(ProgressThrottle, ReportsGoOnAfterTheClockHasWrapped)
{
    ProgressThrottle throttle(400);
    EXPECT_TRUE(throttle.isDue(kLastTickMs - 300));
    EXPECT_FALSE(throttle.isDue(50));
    EXPECT_TRUE(throttle.isDue(99));
    EXPECT_FALSE(throttle.isDue(498));
    EXPECT_TRUE(throttle.isDue(499));
}

TEST(ProgressThrottle, AnIntervalOfZeroLetsEveryReportThrough)
{
    ProgressThrottle throttle(0);
    EXPECT_TRUE(throttle.isDue(0));
    EXPECT_TRUE(throttle.isDue(0));
}

} // namespace
} // namespace quillon::crypto::internal
