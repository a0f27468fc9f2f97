#include "thread/Thread.h"

#include "support/PrintResultCode.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <future>
#include <new>

namespace {
thread_local bool hasNoMemory = false;
}

// A run takes memory before it takes a thread, and fails in the same way without either. Inlined, the release
// would look to the compiler like one of memory that another function gave.
void* operator new(std::size_t size)
{
    void* const memory = hasNoMemory ? nullptr : std::malloc(size);
    return memory != nullptr ? memory : throw std::bad_alloc();
}

[[gnu::noinline]] void operator delete(void* memory) noexcept
{
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace quillon::thread {
namespace {

using err::ResultCode;

struct Work final : IRunnable
{
    ResultCode run(std::uint32_t id, std::int64_t param) override { return body(id, param); }

    std::function<ResultCode(std::uint32_t, std::int64_t)> body;
};

TEST(Thread, RunsOnAWorkerOneRunAtATimeAndEachLeavesItsOwnResult)
{
    Thread thread;
    EXPECT_EQ(thread.waitFor(60'000), WaitStatus::Deferred) << "with nothing to wait for";
    thread.setId(100);
    Work work;
    thread.setRunnable(&work);
    for (const std::uint32_t code : {70U, 71U}) {
        std::promise<void> gate;
        work.body = [&](std::uint32_t id, std::int64_t param) {
            gate.get_future().wait();
            return ResultCode{id, static_cast<std::uint32_t>(param >> 32)};
        };
        ASSERT_EQ(thread.start(std::int64_t{code} << 32), ResultCode{});
        EXPECT_TRUE(thread.isRunning());
        EXPECT_EQ(thread.waitFor(1), WaitStatus::TimedOut);
        EXPECT_EQ(thread.start(), err::programError(err::kAlreadyRunning));
        EXPECT_EQ(thread.getResult(), ResultCode{});
        gate.set_value();
        EXPECT_EQ(thread.wait(), WaitStatus::Ready);
        EXPECT_FALSE(thread.isRunning());
        EXPECT_EQ(thread.getResult(), (ResultCode{100, code}));
    }
}

TEST(Thread, ThatCouldNotStartMayBeStartedAgain)
{
    Thread thread;
    EXPECT_EQ(thread.start(), err::programError(err::kNoRunnable));
    Work work;
    work.body = [](std::uint32_t, std::int64_t) { return ResultCode{7, 70}; };
    thread.setRunnable(&work);
    hasNoMemory = true;
    const ResultCode started = thread.start();
    hasNoMemory = false;
    EXPECT_EQ(started, err::programError(err::kThreadNotStarted));
    EXPECT_EQ(thread.start(), ResultCode{});
    EXPECT_EQ(thread.wait(), WaitStatus::Ready);
}

} // namespace
} // namespace quillon::thread
