#pragma once

#include "sync/SafeData.h"
#include "thread/IThread.h"

#include <atomic>
#include <cstdint>
#include <future>

namespace quillon::thread {

/// Runs an IRunnable on a worker of its own. Can be started again after each run. The owner must have waited
/// for the run before it destroys the Thread.
class Thread final : public IThread
{
public:
    /// Tells several workers over one runnable apart; 1 until it is set. Call it before `start`.
    void setId(std::uint32_t id) noexcept { m_id = id; }

    void setRunnable(IRunnable* runnable) override { m_runnable = runnable; }
    err::ResultCode start(std::int64_t param) override;
    err::ResultCode start() override { return start(0); }
    WaitStatus waitFor(std::uint32_t milliseconds) override;
    WaitStatus wait() override;
    [[nodiscard]] std::uint32_t getId() const override { return m_id; }
    [[nodiscard]] std::int32_t getReserved() const override { return 0; }
    [[nodiscard]] bool isRunning() const override { return m_running != 0; }
    [[nodiscard]] err::ResultCode getResult() const override { return m_result.get(); }
    [[nodiscard]] std::int32_t getUserFlag() const override { return m_userFlag; }
    void setUserFlag(std::int32_t flag) override { m_userFlag = flag; }

private:
    void runBody(std::int64_t param);

    std::atomic<std::uint32_t> m_id{1};
    IRunnable* m_runnable = nullptr;
    sync::SafeValue<err::ResultCode> m_result;
    std::atomic<std::int32_t> m_userFlag{0};
    std::atomic<std::int32_t> m_running{0};
    std::future<void> m_future;
};

} // namespace quillon::thread
