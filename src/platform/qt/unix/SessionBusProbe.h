#pragma once

#include <chrono>

namespace quillon::platform {

/// Whether this user's session bus exists and begins to answer within `patience`. The bus library itself
/// would wait for a mute one without end, and keep the program from ending too. Where no address is set and
/// the bus is not in its usual place there is none: the library would start one of its own, to which no
/// desktop listens.
[[nodiscard]] bool answersSessionBus(std::chrono::milliseconds patience);

} // namespace quillon::platform
