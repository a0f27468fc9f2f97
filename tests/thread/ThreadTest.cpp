#include "thread/Thread.h"

#include "support/PrintResultCode.h"

#include <gtest/gtest.h>

#include <functional>
#include <future>

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

} // namespace
} // namespace quillon::thread
