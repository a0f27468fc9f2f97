#include "PeakMemory.h"

#include <sys/resource.h>

namespace quillon::tests {

std::size_t peakMemory()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<std::size_t>(usage.ru_maxrss) * 1024; // which is told in KiB
}

} // namespace quillon::tests
