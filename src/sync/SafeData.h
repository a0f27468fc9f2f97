#pragma once

#include "sync/Locker.h"

#include <mutex>
#include <utility>

namespace quillon::sync {
namespace internal {

/// A value with a lock of its own. Any thread may call any operation; `value` itself is touched only between
/// lock and unlock. Hold the lock for one copy or one store, never across a read of a stream, a callback or a
/// signal.
template <class Lock, class T>
class SafeData final : public ILockable
{
public:
    SafeData() = default;
    explicit SafeData(T initial)
        : value(std::move(initial))
    {
    }

    void lock() override { m_lock.lock(); }
    void unlock() override { m_lock.unlock(); }
    bool tryLock() override { return m_lock.tryLock(); }

    /// A copy of the value, taken under the lock.
    [[nodiscard]] T get() const
    {
        const std::lock_guard guard(m_lock);
        return value;
    }

    /// Replaces the value under the lock. The former value is destroyed after the lock is released.
    void set(T next)
    {
        const std::lock_guard guard(m_lock);
        std::swap(value, next);
    }

private:
    mutable Lock m_lock;

public:
    T value{};
};

} // namespace internal

using internal::SafeData;

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
