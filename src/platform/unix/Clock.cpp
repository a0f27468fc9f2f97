#include "platform/Clock.h"

#include <ctime>

namespace quillon::platform {

std::uint32_t tickCountMs() noexcept
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    const auto milliseconds =
        static_cast<std::uint64_t>(now.tv_sec) * 1000U + static_cast<std::uint64_t>(now.tv_nsec) / 1000000U;
    return static_cast<std::uint32_t>(milliseconds);
}

namespace {

constexpr std::int64_t kTicksPerSecond = 10'000'000;
constexpr std::int64_t kSecondsFrom1601To1970 = 11'644'473'600;

} // namespace

std::uint64_t localTimeTicks() noexcept
{
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    tm local{};
    localtime_r(&now.tv_sec, &local);
    const std::int64_t seconds = now.tv_sec + local.tm_gmtoff + kSecondsFrom1601To1970;
    return static_cast<std::uint64_t>(seconds * kTicksPerSecond + now.tv_nsec / 100);
}

} // namespace quillon::platform
