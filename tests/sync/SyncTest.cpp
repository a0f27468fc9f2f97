#include "sync/SafeData.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

namespace quillon::sync {
namespace {

void runOnThreads(int count, const std::function<void()>& work)
{
    std::vector<std::jthread> threads;
    for (int i = 0; i < count; ++i)
        threads.emplace_back(work);
}

/// Whether another thread gets the lock; gives it back at once.
bool othersCanLock(ILockable& lock)
{
    bool taken = false;
    runOnThreads(1, [&] {
        taken = lock.tryLock();
        if (taken)
            lock.unlock();
    });
    return taken;
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

TEST(SafeValue, ExchangeLetsOneThreadOnlySeeTheFormerValue)
{
    SafeValue<bool> isTaken;
    std::atomic<int> winners{0};
    runOnThreads(8, [&] { winners += isTaken.exchange(true) ? 0 : 1; });
    EXPECT_EQ(winners, 1);
}

} // namespace
} // namespace quillon::sync
