// The small services of the system that say the same on each.

#include "platform/Clock.h"
#include "platform/Process.h"
#include "support/Wait.h"

#include <gtest/gtest.h>

#include <ctime>

namespace quillon::platform {
namespace {

using namespace std::chrono;

TEST(Ticks, CountMillisecondsAsTheSteadyClockDoes)
{
    const auto start = steady_clock::now();
    const std::uint32_t first = tickCountMs();
    EXPECT_TRUE(tests::waitUntil([&] { return steady_clock::now() - start > 50ms; }));
    EXPECT_GE(tickCountMs() - first, 30U); // some systems move the clock in steps of 16 ms
    EXPECT_LE((tickCountMs() - first) * 1ms, steady_clock::now() - start + 16ms);
}

TEST(LocalTime, IsThatOfTheRuntimeLibrarySince1601)
{
    const std::time_t now = std::time(nullptr);
    const std::tm local = *std::localtime(&now);
    const sys_days day = year{local.tm_year + 1900} / (local.tm_mon + 1) / local.tm_mday;
    const seconds since1601 = day - sys_days(1601y / 1 / 1) + local.tm_hour * 1h + local.tm_min * 1min;
    EXPECT_NEAR(static_cast<double>(localTimeTicks()) / 1e7, static_cast<double>(since1601.count()), 90);
}

TEST(ThreadIds, DifferBetweenThreads)
{
    std::uint32_t other = currentThreadId();
    std::thread([&] { other = currentThreadId(); }).join();
    EXPECT_NE(other, currentThreadId());
}

} // namespace
} // namespace quillon::platform
