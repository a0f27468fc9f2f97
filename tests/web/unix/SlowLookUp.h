#pragma once

namespace quillon::tests {

/// A name that cannot be looked up before `releaseSlowLookUps`: the program that links this has a getaddrinfo
/// of its own, which stands in front of the C library's.
inline constexpr const char* kSlowHost = "slow.invalid";

/// Whether the name is being looked up.
[[nodiscard]] bool isLookingUp();

void releaseSlowLookUps();

} // namespace quillon::tests
