#pragma once

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

} // namespace quillon::sync
