#include "sync/Locker.h"
#include "sync/SafeData.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <string>
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

template <class Lockable>
class LockableTest : public testing::Test
{
};

using Lockables = testing::Types<Locker, SafeData<Locker, int>>;
TYPED_TEST_SUITE(LockableTest, Lockables);

TYPED_TEST(LockableTest, TheHolderMayLockAgainAndOthersWaitForTheLastUnlock)
{
    TypeParam lock;
    lock.lock();
    EXPECT_TRUE(lock.tryLock());
    EXPECT_FALSE(othersCanLock(lock));
    lock.unlock();
    EXPECT_FALSE(othersCanLock(lock));
    lock.unlock();
    EXPECT_TRUE(othersCanLock(lock));
}

TEST(SafeData, NoChangeMadeUnderTheLockIsLost)
{
    SafeData<Locker, int> data;
    runOnThreads(4, [&] {
        for (int i = 0; i < 10000; ++i) {
            const std::lock_guard guard(data);
            ++data.value;
        }
    });
    EXPECT_EQ(data.get(), 40000);
}

TEST(SafeData, AFormerValueIsDestroyedWithoutTheLock)
{
    /// Tells at its end whether another thread could take the lock.
    struct Probe
    {
        Probe(ILockable& watched, bool& answer)
            : lock(watched)
            , wasFree(answer)
        {
        }
        ~Probe() { wasFree = othersCanLock(lock); }

        ILockable& lock;
        bool& wasFree;
    };
    bool wasFree = false;
    SafeData<Locker, std::shared_ptr<Probe>> data;
    data.set(std::make_shared<Probe>(data, wasFree));
    data.set(nullptr);
    EXPECT_TRUE(wasFree);
}

TEST(SafeValue, ExchangeLetsOneThreadOnlySeeTheFormerValue)
{
    SafeValue<bool> isTaken;
    std::atomic<int> winners{0};
    runOnThreads(8, [&] { winners += isTaken.exchange(true) ? 0 : 1; });
    EXPECT_EQ(winners, 1);
    EXPECT_TRUE(isTaken.get());
    isTaken.set(false);
    EXPECT_FALSE(isTaken.get());
}

} // namespace
} // namespace quillon::sync
