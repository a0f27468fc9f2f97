#pragma once

#include <cstdint>

namespace quillon::platform {

/// A monotonic clock in milliseconds, cut to 32 bits: it wraps after about 49 days. Any thread.
[[nodiscard]] std::uint32_t tickCountMs() noexcept;

/// The local wall-clock time as a count of 100 ns ticks since the start of the year 1601. Any thread.
[[nodiscard]] std::uint64_t localTimeTicks() noexcept;

} // namespace quillon::platform
