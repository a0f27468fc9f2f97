#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace quillon::logger::internal {

/// A signal that stays set until it is reset. Any thread may call any operation.
class ManualResetEvent
{
public:
    void set()
    {
        {
            const std::lock_guard guard(m_mutex);
            // Whoever waits was woken already; another wake-up would be a system call for nothing.
            if (m_isSet)
                return;
            m_isSet = true;
        }
        m_changed.notify_all();
    }

    void reset()
    {
        const std::lock_guard guard(m_mutex);
        m_isSet = false;
    }

    /// Returns once the event is set, and after `limit` at the latest.
    void waitFor(std::chrono::milliseconds limit)
    {
        std::unique_lock guard(m_mutex);
        m_changed.wait_for(guard, limit, [this] { return m_isSet; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_isSet = false;
};

} // namespace quillon::logger::internal
