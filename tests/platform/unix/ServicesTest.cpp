// The small services of the system that have little to say each.

#include "platform/Clock.h"
#include "platform/Process.h"
#include "platform/RuntimeLibrary.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <string>
#include <thread>

namespace quillon::platform {
namespace {

TEST(ProgramArguments, AreThoseBehindTheProgramsName)
{
    const char* const line[] = {"program", "/key", "\xC3\xA4 b", "", nullptr};
    EXPECT_EQ(programArguments(4, line), (std::vector<std::string>{"/key", "\xC3\xA4 b", ""}));
    EXPECT_TRUE(programArguments(1, line).empty());
    EXPECT_TRUE(programArguments(0, line + 4).empty());
}

TEST(ProcessIds, AreThoseOfTheProcessAndOfTheCallingThread)
{
    EXPECT_EQ(currentProcessId(), static_cast<std::uint32_t>(getpid()));
    EXPECT_EQ(currentThreadId(), currentProcessId()); // the first thread's number is the process's
    std::uint32_t other = 0;
    std::thread([&] { other = currentThreadId(); }).join();
    EXPECT_NE(other, currentThreadId());
}

TEST(LocalTime, FollowsTheTimeZone)
{
    const char* const variable = std::getenv("TZ");
    const std::string former = variable == nullptr ? "" : variable;
    const auto ticksIn = [](const char* zone) {
        setenv("TZ", zone, 1);
        tzset();
        return static_cast<std::int64_t>(localTimeTicks());
    };
    const std::int64_t west = ticksIn("WEST+3:30");
    const std::int64_t east = ticksIn("EAST-5:45");
    constexpr std::int64_t kHourTicks = 3600LL * 10'000'000;
    EXPECT_NEAR(static_cast<double>(east - west) / kHourTicks, 9.25, 0.02);
    variable == nullptr ? unsetenv("TZ") : setenv("TZ", former.c_str(), 1);
    tzset();
}

} // namespace
} // namespace quillon::platform
