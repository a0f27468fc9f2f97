// The small services of the system that say the same on each.

#include "platform/Clock.h"
#include "platform/Process.h"

#include <gtest/gtest.h>

#include <chrono>
#include <ctime>
#include <thread>

namespace quillon::platform {
namespace {

using namespace std::chrono;

TEST(Ticks, CountMillisecondsAsTheSteadyClockDoes)
{
    const auto start = steady_clock::now();
    const std::uint32_t first = tickCountMs();
    while (steady_clock::now() - start < milliseconds(50)) {
    }
    const std::uint32_t ticks = tickCountMs() - first;
    EXPECT_GE(ticks, 30U); // some systems move the clock in steps of 16 ms
    EXPECT_LE(ticks, ceil<milliseconds>(steady_clock::now() - start).count() + 16);
}

TEST(LocalTime, IsThatOfTheRuntimeLibrarySince1601)
{
    const std::time_t now = std::time(nullptr);
    const std::tm local = *std::localtime(&now);
    const sys_days day = year{local.tm_year + 1900} / (local.tm_mon + 1) / local.tm_mday;
    const seconds since1601 = day - sys_days(year{1601} / January / 1) + hours(local.tm_hour) +
                              minutes(local.tm_min) + seconds(local.tm_sec);
    EXPECT_NEAR(static_cast<double>(localTimeTicks()) / 1e7, static_cast<double>(since1601.count()), 60);
}

TEST(ThreadIds, DifferBetweenThreads)
{
    std::uint32_t other = currentThreadId();
    std::thread([&] { other = currentThreadId(); }).join();
    EXPECT_NE(other, currentThreadId());
}

} // namespace
} // namespace quillon::platform
