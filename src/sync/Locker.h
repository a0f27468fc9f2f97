#pragma once

#include <mutex>

namespace quillon::sync {

/// Something that one thread at a time can hold. Fits std::lock_guard.
class ILockable
{
public:
    virtual ~ILockable() = default;

    /// Blocks until the calling thread holds the lock. Throws std::system_error where the system's lock
    /// fails.
    virtual void lock() = 0;

    /// Releases one level of holding.
    virtual void unlock() = 0;

    /// Takes the lock and returns true, or returns false at once where another thread holds it.
    virtual bool tryLock() = 0;
};

/// A recursive lock: the thread that holds it may lock it again, and needs one unlock for each lock.
class Locker final : public ILockable
{
public:
    Locker() = default;
    Locker(const Locker&) = delete;
    Locker& operator=(const Locker&) = delete;

    void lock() override { m_mutex.lock(); }
    void unlock() override { m_mutex.unlock(); }
    bool tryLock() override { return m_mutex.try_lock(); }

private:
    std::recursive_mutex m_mutex;
};

} // namespace quillon::sync
