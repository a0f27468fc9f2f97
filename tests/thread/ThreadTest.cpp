#include "thread/Thread.h"

#include "err/ResultCode.h"
#include "support/PrintResultCode.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>
#include <thread>

namespace quillon::thread {
namespace {

constexpr std::uint32_t kLimitMs = 60'000;

/// Runs until the test opens the gate, and keeps what it was called with.
class GatedRunnable final : public IRunnable
{
public:
    explicit GatedRunnable(bool isOpen)
        : m_isOpen(isOpen)
    {
    }

    err::ResultCode run(std::uint32_t id, std::int64_t param) override
    {
        std::unique_lock guard(m_mutex);
        m_changed.wait(guard, [this] { return m_isOpen; });
        lastId = id;
        lastParam = param;
        worker = std::this_thread::get_id();
        return result;
    }

    void open()
    {
        const std::lock_guard guard(m_mutex);
        m_isOpen = true;
        m_changed.notify_all();
    }

    err::ResultCode result{7, 70};
    std::uint32_t lastId = 0;
    std::int64_t lastParam = 0;
    std::thread::id worker;

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_isOpen;
};

TEST(Thread, WaitWithoutARunAnswersAtOnce)
{
    Thread thread;
    EXPECT_EQ(thread.wait(), WaitStatus::Deferred);
    EXPECT_EQ(thread.waitFor(kLimitMs), WaitStatus::Deferred);
    EXPECT_EQ(static_cast<int>(WaitStatus::Deferred), 2);
}

TEST(Thread, ARunHappensOnAWorkerAndLeavesItsResult)
{
    GatedRunnable work(true);
    Thread thread;
    thread.setId(100);
    thread.setUserFlag(-3);
    thread.setRunnable(&work);
    ASSERT_EQ(thread.start(std::int64_t{1} << 40), err::ResultCode{});
    ASSERT_EQ(thread.waitFor(kLimitMs), WaitStatus::Ready);
    EXPECT_FALSE(thread.isRunning());
    EXPECT_EQ(thread.getResult(), work.result);
    EXPECT_EQ(work.lastId, 100U);
    EXPECT_EQ(work.lastParam, std::int64_t{1} << 40);
    EXPECT_NE(work.worker, std::this_thread::get_id());
    EXPECT_EQ(thread.getUserFlag(), -3);
}

TEST(Thread, DuringARunStartIsRefusedAndTheResultIsClean)
{
    GatedRunnable work(false);
    Thread thread;
    thread.setRunnable(&work);
    ASSERT_EQ(thread.start(), err::ResultCode{});
    EXPECT_TRUE(thread.isRunning());
    EXPECT_EQ(thread.waitFor(1), WaitStatus::TimedOut);
    EXPECT_EQ(thread.start(5), (err::ResultCode{5, 8}));
    EXPECT_EQ(thread.getResult(), err::ResultCode{});
    work.open();
    EXPECT_EQ(thread.wait(), WaitStatus::Ready);
    EXPECT_EQ(work.lastParam, 0);
}

TEST(Thread, ASecondRunStartsAfreshWithTheFormerResultGone)
{
    GatedRunnable first(true);
    GatedRunnable second(false);
    Thread thread;
    thread.setRunnable(&first);
    ASSERT_EQ(thread.start(), err::ResultCode{});
    ASSERT_EQ(thread.wait(), WaitStatus::Ready);
    ASSERT_EQ(thread.getResult(), first.result);

    second.result = {7, 71};
    thread.setRunnable(&second);
    ASSERT_EQ(thread.start(), err::ResultCode{});
    EXPECT_EQ(thread.getResult(), err::ResultCode{});
    second.open();
    EXPECT_EQ(thread.wait(), WaitStatus::Ready);
    EXPECT_EQ(thread.getResult(), second.result);
}

TEST(Thread, SeveralThreadsShareARunnableByTheirIds)
{
    GatedRunnable work(true);
    for (const std::uint32_t id : {1U, 2U}) {
        Thread thread;
        thread.setId(id);
        thread.setRunnable(&work);
        ASSERT_EQ(thread.start(), err::ResultCode{});
        ASSERT_EQ(thread.wait(), WaitStatus::Ready);
        EXPECT_EQ(work.lastId, id);
    }
}

} // namespace
} // namespace quillon::thread
