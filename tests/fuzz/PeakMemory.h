#pragma once

#include <cstddef>

namespace quillon::tests {

/// The most memory that this process has had in use so far, in bytes.
[[nodiscard]] std::size_t peakMemory();

} // namespace quillon::tests
