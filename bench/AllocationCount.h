#pragma once

namespace quillon::tests {

/// How often the calling thread took memory from the heap so far.
[[nodiscard]] long allocationCount() noexcept;

} // namespace quillon::tests
