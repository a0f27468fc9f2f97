#pragma once

#include "sync/ILockable.h"
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

} // namespace quillon::sync
