#include "platform/Clock.h"

#include <windows.h>

namespace quillon::platform {

std::uint32_t tickCountMs() noexcept
{
    return GetTickCount();
}

std::uint64_t localTimeTicks() noexcept
{
    SYSTEMTIME now{};
    GetLocalTime(&now);
    FILETIME ticks{};
    SystemTimeToFileTime(&now, &ticks);
    return (static_cast<std::uint64_t>(ticks.dwHighDateTime) << 32U) | ticks.dwLowDateTime;
}

} // namespace quillon::platform
