#include "platform/LocalTime.h"

#include <windows.h>

namespace quillon::platform {

std::uint64_t localTimeTicks() noexcept
{
    SYSTEMTIME now{};
    GetLocalTime(&now);
    FILETIME ticks{};
    SystemTimeToFileTime(&now, &ticks);
    return (static_cast<std::uint64_t>(ticks.dwHighDateTime) << 32U) | ticks.dwLowDateTime;
}

} // namespace quillon::platform
