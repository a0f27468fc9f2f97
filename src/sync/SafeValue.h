#pragma once

#include "sync/Locker.h"

#include <mutex>

namespace quillon::sync {

/// A flag or a small number with a lock of its own. Any thread may call any operation.
template <class T>
class SafeValue
{
public:
    SafeValue() = default;
    explicit SafeValue(T initial)
        : m_value(initial)
    {
    }

    [[nodiscard]] T get() const
    {
        const std::lock_guard guard(m_lock);
        return m_value;
    }

    void set(T next)
    {
        const std::lock_guard guard(m_lock);
        m_value = next;
    }

    /// Stores `next` and returns what stood there before, in one step.
    T exchange(T next)
    {
        const std::lock_guard guard(m_lock);
        const T former = m_value;
        m_value = next;
        return former;
    }

private:
    mutable Locker m_lock;
    T m_value{};
};

} // namespace quillon::sync
