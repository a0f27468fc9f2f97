#include "sync/SafeData.h"

#include <gtest/gtest.h>

#include <future>
#include <memory>

namespace quillon::sync {
namespace {

/// Whether another thread gets the lock; gives it back at once.
bool othersCanLock(ILockable& lock)
{
    const auto take = [&lock] {
        const bool isTaken = lock.tryLock();
        if (isTaken)
            lock.unlock();
        return isTaken;
    };
    return std::async(std::launch::async, take).get();
}

TEST(SafeData, ItsHolderMayLockAgainAndOthersWaitForTheLastUnlock)
{
    SafeData<Locker, int> data;
    data.lock();
    EXPECT_TRUE(data.tryLock());
    EXPECT_FALSE(othersCanLock(data));
    data.unlock();
    EXPECT_FALSE(othersCanLock(data));
    data.unlock();
    EXPECT_TRUE(othersCanLock(data));
}

TEST(SafeData, AFormerValueIsDestroyedWithoutTheLock)
{
    bool wasFree = false;
    SafeData<Locker, std::shared_ptr<void>> data;
    data.set({nullptr, [&](void*) { wasFree = othersCanLock(data); }});
    data.set(nullptr);
    EXPECT_TRUE(wasFree);
}

} // namespace
} // namespace quillon::sync
