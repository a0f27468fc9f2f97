#include "platform/ProcessIds.h"

#include <unistd.h>

namespace quillon::platform {

// Asked for once, as a log statement would cost most of its time in these system calls. Right for as long as
// the process forks only to start another program.

std::uint32_t currentProcessId() noexcept
{
    static const auto id = static_cast<std::uint32_t>(getpid());
    return id;
}

std::uint32_t currentThreadId() noexcept
{
    thread_local const auto id = static_cast<std::uint32_t>(gettid());
    return id;
}

} // namespace quillon::platform
