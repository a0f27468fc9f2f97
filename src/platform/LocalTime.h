#pragma once

#include <cstdint>

namespace quillon::platform {

/// The local wall-clock time as a count of 100 ns ticks since the start of the year 1601. Any thread.
[[nodiscard]] std::uint64_t localTimeTicks() noexcept;

} // namespace quillon::platform
