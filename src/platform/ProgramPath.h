#pragma once

#include <string>

namespace quillon::platform {

/// The full name of the running program's file in UTF-8, links resolved. Empty where the system does not say.
[[nodiscard]] std::string programPath();

} // namespace quillon::platform
