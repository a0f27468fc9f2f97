#pragma once

#include "err/ResultCode.h"

#include <cstdint>

namespace quillon::thread {

/// The work of one or several Threads.
class IRunnable
{
public:
    virtual ~IRunnable() = default;

    /// Does the work, on the worker. `id` is that of the Thread on which it runs; an unknown id is answered
    /// with success and no work. `param` is what `start` was given. Must not let an exception escape.
    virtual err::ResultCode run(std::uint32_t id, std::int64_t param) = 0;
};

/// How a wait ended.
enum class WaitStatus : std::int32_t
{
    Ready = 0,    ///< the run has ended
    TimedOut = 1, ///< the run goes on
    Deferred = 2, ///< no run was ever started
};

/// One background worker. `start`, `waitFor` and `wait` belong to the owner's thread, the other operations to
/// any thread. There is no cancel: the owner makes its runnable end, then waits.
class IThread
{
public:
    virtual ~IThread() = default;

    /// Stores the work to do; ownership stays with the caller. Call it before `start`.
    virtual void setRunnable(IRunnable* runnable) = 0;

    /// Starts a run and passes `param` to it. (5, 300) without a runnable, (5, 8) while a run is going on,
    /// (5, 303) where the system gives no thread.
    virtual err::ResultCode start(std::int64_t param) = 0;
    virtual err::ResultCode start() = 0;

    /// Waits for the run to end, at most `milliseconds`.
    virtual WaitStatus waitFor(std::uint32_t milliseconds) = 0;

    /// Waits for the run to end, for as long as it takes (768 hours at most).
    virtual WaitStatus wait() = 0;

    [[nodiscard]] virtual std::uint32_t getId() const = 0;
    [[nodiscard]] virtual std::int32_t getReserved() const = 0;
    [[nodiscard]] virtual bool isRunning() const = 0;

    /// The result of the last run; success while a run is going on.
    [[nodiscard]] virtual err::ResultCode getResult() const = 0;

    /// A number kept for the owner, never looked at here.
    [[nodiscard]] virtual std::int32_t getUserFlag() const = 0;
    virtual void setUserFlag(std::int32_t flag) = 0;
};

} // namespace quillon::thread
