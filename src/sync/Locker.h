#pragma once

#include <pthread.h>

#include <cerrno>
#include <mutex>
#include <system_error>

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

    /// Takes the lock and returns true, or returns false at once where another thread holds it. Throws
    /// std::system_error where the system's lock fails otherwise.
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
    bool tryLock() override
    {
        // The standard mutex would take every failure for a holder.
        const int status = pthread_mutex_trylock(m_mutex.native_handle());
        if (status != 0 && status != EBUSY)
            throw std::system_error(status, std::generic_category());
        return status == 0;
    }

private:
    std::recursive_mutex m_mutex;
};

} // namespace quillon::sync
