#include "PeakMemory.h"

#include <windows.h>
// Behind windows.h, which it builds on.
#include <psapi.h>

namespace quillon::tests {

std::size_t peakMemory()
{
    PROCESS_MEMORY_COUNTERS counters{};
    K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters.PeakPagefileUsage;
}

} // namespace quillon::tests
