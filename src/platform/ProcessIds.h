#pragma once

#include <cstdint>

namespace quillon::platform {

/// The system's numbers of this process and of the calling thread.
[[nodiscard]] std::uint32_t currentProcessId() noexcept;
[[nodiscard]] std::uint32_t currentThreadId() noexcept;

} // namespace quillon::platform
