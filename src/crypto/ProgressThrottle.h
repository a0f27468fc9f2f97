#pragma once

#include <cstdint>

namespace quillon::crypto::internal {

/// Lets one report through per interval. All times are 32-bit milliseconds that wrap, so about every 49 days
/// one report may come early.
class ProgressThrottle
{
public:
    explicit constexpr ProgressThrottle(std::uint32_t intervalMs) noexcept
        : m_intervalMs(intervalMs)
    {
    }

    /// Whether a report is due at `tickMs`; if so, the next one is due an interval later. The first one is
    /// due as soon as the tick count has reached the interval.
    [[nodiscard]] constexpr bool isDue(std::uint32_t tickMs) noexcept
    {
        if (tickMs < m_intervalMs + m_lastReportMs)
            return false;
        m_lastReportMs = tickMs;
        return true;
    }

private:
    std::uint32_t m_intervalMs;
    std::uint32_t m_lastReportMs = 0;
};

} // namespace quillon::crypto::internal
