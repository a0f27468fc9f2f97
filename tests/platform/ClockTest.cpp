#include "platform/Clock.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

namespace quillon::platform {
namespace {

using std::chrono::steady_clock;

TEST(Ticks, CountMillisecondsAsTheSteadyClockDoes)
{
    const auto start = steady_clock::now();
    const std::uint32_t first = tickCountMs();
    while (steady_clock::now() - start < std::chrono::milliseconds(50)) {
    }
    const std::uint32_t ticks = tickCountMs() - first;
    const auto passed = std::chrono::ceil<std::chrono::milliseconds>(steady_clock::now() - start);
    EXPECT_GE(ticks, 30U); // some systems move the clock in steps of 16 ms
    EXPECT_LE(ticks, passed.count() + 16);
}

TEST(LocalTime, DiffersFromUniversalTimeByWholeQuartersOfAnHourAndADayAtMost)
{
    using namespace std::chrono;
    using Ticks = duration<std::int64_t, std::ratio<1, 10'000'000>>;
    const Ticks before1970 = -sys_days{year{1601} / January / 1}.time_since_epoch();
    const Ticks since1970 = duration_cast<Ticks>(system_clock::now().time_since_epoch());
    const auto difference = static_cast<std::int64_t>(localTimeTicks()) - (since1970 + before1970).count();
    constexpr std::int64_t kQuarterTicks = 15LL * 60 * 10'000'000;
    constexpr std::int64_t kMinuteTicks = 60LL * 10'000'000;
    EXPECT_LE(std::abs(difference), 96 * kQuarterTicks + kMinuteTicks);
    // The nearest whole quarter: the two clocks were read one after the other, and one of them may be
    // coarser.
    const std::int64_t rest = std::abs(difference % kQuarterTicks);
    EXPECT_LT(std::min(rest, kQuarterTicks - rest), kMinuteTicks);
}

} // namespace
} // namespace quillon::platform
