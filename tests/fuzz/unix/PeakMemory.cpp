#include "PeakMemory.h"

#include <sys/resource.h>

namespace quillon::tests {

std::size_t peakMemory()
{
    constexpr std::size_t kUnitBytes = 1024;
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<std::size_t>(usage.ru_maxrss) * kUnitBytes;
}

} // namespace quillon::tests
