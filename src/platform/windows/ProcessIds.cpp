#include "platform/ProcessIds.h"

#include <windows.h>

namespace quillon::platform {

std::uint32_t currentProcessId() noexcept
{
    return GetCurrentProcessId();
}

std::uint32_t currentThreadId() noexcept
{
    return GetCurrentThreadId();
}

} // namespace quillon::platform
