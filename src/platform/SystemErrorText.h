#pragma once

#include <cstdint>
#include <string>

namespace quillon::platform {

/// The system's text for one of its error numbers (group 1), UTF-8, trimmed; empty for an unknown number.
[[nodiscard]] std::string osErrorText(std::uint32_t code);

} // namespace quillon::platform
