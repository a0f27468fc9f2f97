#include "thread/Thread.h"

#include "err/ResultCode.h"

#include <chrono>

namespace quillon::thread {
namespace {

// Stands for "for ever": a span that no steady clock overflows on.
constexpr std::chrono::hours kLongestWait{768};

template <class Duration>
WaitStatus waitOn(const std::future<void>& future, Duration span)
{
    if (!future.valid())
        return WaitStatus::Deferred;
    switch (future.wait_for(span)) {
    case std::future_status::ready:
        return WaitStatus::Ready;
    case std::future_status::timeout:
        return WaitStatus::TimedOut;
    case std::future_status::deferred:
        break;
    }
    return WaitStatus::Deferred;
}

} // namespace

err::ResultCode Thread::start(std::int64_t param)
{
    if (m_runnable == nullptr)
        return err::programError(err::kNoRunnable);
    if (isRunning())
        return err::programError(err::kAlreadyRunning);
    // Set before the worker exists, so that the answer of isRunning is right as soon as start returns.
    m_running = 1;
    m_result.set({});
    try {
        m_future = std::async(std::launch::async, &Thread::runBody, this, param);
    } catch (...) {
        m_running = 0;
        return err::programError(err::kThreadNotStarted);
    }
    return {};
}

void Thread::runBody(std::int64_t param)
{
    if (m_runnable != nullptr)
        m_result.set(m_runnable->run(m_id, param));
    m_running = 0;
}

WaitStatus Thread::waitFor(std::uint32_t milliseconds)
{
    return waitOn(m_future, std::chrono::milliseconds{milliseconds});
}

WaitStatus Thread::wait()
{
    return waitOn(m_future, kLongestWait);
}

} // namespace quillon::thread
