#pragma once

#include <chrono>
#include <thread>

namespace quillon::tests {

/// The longest time that a test waits for something.
constexpr std::chrono::seconds kWaitLimit{60};

/// Whether `condition` comes true within that time. Lets no events happen: see QtWait.h for those.
template <class Condition>
[[nodiscard]] bool waitUntil(Condition condition)
{
    const auto limit = std::chrono::steady_clock::now() + kWaitLimit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > limit)
            return false;
        std::this_thread::yield();
    }
    return true;
}

} // namespace quillon::tests
