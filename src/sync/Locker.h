#pragma once

#include "sync/ILockable.h"

#include <mutex>

namespace quillon::sync {

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
