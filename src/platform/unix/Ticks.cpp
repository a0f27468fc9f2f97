#include "platform/Ticks.h"

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

} // namespace quillon::platform
