#include "platform/Ticks.h"

#include <windows.h>

namespace quillon::platform {

std::uint32_t tickCountMs() noexcept
{
    return GetTickCount();
}

} // namespace quillon::platform
