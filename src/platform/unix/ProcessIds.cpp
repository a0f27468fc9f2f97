#include "platform/ProcessIds.h"

#include <unistd.h>

namespace quillon::platform {

std::uint32_t currentProcessId() noexcept
{
    return static_cast<std::uint32_t>(getpid());
}

std::uint32_t currentThreadId() noexcept
{
    return static_cast<std::uint32_t>(gettid());
}

} // namespace quillon::platform
