#pragma once

#include <cstdint>

namespace quillon::platform {

/// A monotonic clock in milliseconds, cut to 32 bits: it wraps after about 49 days. Any thread.
[[nodiscard]] std::uint32_t tickCountMs() noexcept;

} // namespace quillon::platform
